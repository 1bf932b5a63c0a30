#include "camlink/tcBasicPanel.h"

#include "camlink/logic/tcScriptFile.h"
#include "camlink/logic/tcWireCommand.h"
#include "widgets/tcDialogs.h"
#include "widgets/tcWaitCursor.h"

#include <QElapsedTimer>

namespace
{

constexpr int cPollIntervalMs = 100;
constexpr quint32 cReadBlock = 128;
constexpr quint32 cReadTimeoutMs = 100;
constexpr quint32 cWriteTimeoutMs = 100;
constexpr quint32 cFileTimeoutMs = 1000;
constexpr int cDrainSliceMs = 50;
constexpr int cMostSent = 1000; ///< typed commands that the arrow keys bring back
constexpr int cEmptyReads = 2;  ///< a driver may succeed with nothing; it won't keep the window

} // namespace

tcBasicPanel::tcBasicPanel(const tcPresetTable& acPresets, QWidget* apParent)
    : tcCamlinkIface(apParent), mPresets(acPresets)
{
    mRxTimer.setInterval(cPollIntervalMs);
}

void tcBasicPanel::fillPresets()
{
    for (int index = 0; index < mPresets.count; ++index)
        mPresetsCB->addItem(QString::fromLatin1(mPresets.first[index].label));
}

void tcBasicPanel::openPort(tcSerialLink::tcRef aRef)
{
    mSerialRef = aRef;
    mReceived.reset();
    if (tcSerialLink::setBaudRate(mSerialRef) == 0)
        mRxTimer.start();
    else
        showText(tr("Unable to set baud rate!"));
}

void tcBasicPanel::closePort()
{
    mRxTimer.stop();
    mSerialRef = 0;
}

void tcBasicPanel::drainReceived()
{
    if (mSerialRef == 0)
        return;
    const tcSerialLink::tcAvailable available = tcSerialLink::bytesAvailable(mSerialRef);
    if (available.status != 0 || available.bytes == 0)
        return;
    const bool following = mResponsePTE->isCursorInSight();
    QElapsedTimer slice;
    slice.start();
    int emptyReads = 0;
    tcSerialLink::tcReadResult block;
    do {
        block = tcSerialLink::read(mSerialRef, cReadBlock, cReadTimeoutMs);
        // A block cut short by the time-out still carries the end of a reply.
        if (!block.bytes.isEmpty())
            insertText(mReceived.append(block.bytes));
        emptyReads = block.bytes.isEmpty() ? emptyReads + 1 : 0;
    } while (block.status == 0 && emptyReads < cEmptyReads && mSerialRef != 0
             && slice.elapsed() < cDrainSliceMs);
    // Whoever scrolled back to read is left there.
    if (following)
        mResponsePTE->ensureCursorVisible();
}

void tcBasicPanel::sendTypedCommand()
{
    if (mSerialRef == 0)
        return;
    const QString command = mCommandLE->text();
    tcSerialLink::write(mSerialRef, tcWireCommand::bytes(command), cWriteTimeoutMs);
    if (command.isEmpty() || command == mSent.value(0))
        return;
    mSent.prepend(command);
    if (mSent.size() > cMostSent)
        mSent.removeLast();
}

void tcBasicPanel::sendChosenPreset()
{
    const int index = mPresetsCB->currentIndex();
    if (mSerialRef == 0 || index < 0 || index >= mPresets.count)
        return;
    const tcWaitCursor waiting;
    tcSerialLink::write(mSerialRef, mPresets.first[index].script, cWriteTimeoutMs);
}

void tcBasicPanel::sendChosenFile()
{
    if (mSerialRef == 0)
        return;
    const QString name = tcDialogs::current().openFile(this, tr("Custom Preset File"), {},
                                                       tr("preset files (*.txt)"));
    if (name.isEmpty() || mSerialRef == 0) // the port may have been closed behind the dialog
        return;
    const tcWaitCursor waiting;
    if (const std::optional<QByteArray> script = tcScriptFile::read(name))
        tcSerialLink::write(mSerialRef, *script, cFileTimeoutMs);
}

void tcBasicPanel::showText(const QString& acText)
{
    const bool following = mResponsePTE->isCursorInSight();
    insertText(acText);
    if (following)
        mResponsePTE->ensureCursorVisible();
}

void tcBasicPanel::insertText(const QString& acText)
{
    // As designed: at the cursor, so whoever clicks into the view sees later replies there.
    mResponsePTE->insertPlainText(acText);
}
