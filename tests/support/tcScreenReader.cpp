#include "tests/support/tcScreenReader.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QDBusVariant>
#include <QUuid>

#include <vector>

namespace
{

const QString cRoot = QStringLiteral("/org/a11y/atspi/accessible/root");
constexpr const char* cAccessible = "org.a11y.atspi.Accessible";
constexpr const char* cComponent = "org.a11y.atspi.Component";
constexpr const char* cText = "org.a11y.atspi.Text";
constexpr int cAnswerLimitMs = 20000; ///< a window that is busy for longer hangs

constexpr uint cScreenCoordinates = 0;
constexpr int cStateChecked = 4;
constexpr int cStateFocused = 12;
constexpr int cStateSensitive = 24;
constexpr int cStateShowing = 25;

bool hasState(const QList<uint>& acStates, int anState)
{
    return (acStates.value(anState / 32) >> (anState % 32)) & 1U;
}

QVariant answer(QDBusPendingCall aCall)
{
    aCall.waitForFinished();
    return aCall.isError() ? QVariant() : aCall.reply().arguments().value(0);
}

/// Of the objects that an answer lists.
QStringList paths(const QDBusPendingCall& acCall)
{
    QStringList found;
    const auto list = answer(acCall).value<QDBusArgument>();
    if (list.currentType() != QDBusArgument::ArrayType)
        return found;
    list.beginArray();
    while (!list.atEnd()) {
        QString service;
        QDBusObjectPath path;
        list.beginStructure();
        list >> service >> path;
        list.endStructure();
        found.append(path.path());
    }
    list.endArray();
    return found;
}

QRect rectangle(const QVariant& acAnswer)
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    const auto argument = acAnswer.value<QDBusArgument>();
    if (argument.currentType() == QDBusArgument::StructureType) {
        argument.beginStructure();
        argument >> x >> y >> width >> height;
        argument.endStructure();
    }
    return {x, y, width, height};
}

} // namespace

struct tcScreenReader::tcNode
{
    tcWidget widget;
    bool showing = false;
    QStringList parts;
};

tcScreenReader::tcScreenReader(const QString& acBusAddress)
    : mConnectionName(QUuid::createUuid().toString())
    , mBus(QDBusConnection::connectToBus(acBusAddress, mConnectionName))
{
}

tcScreenReader::~tcScreenReader()
{
    QDBusConnection::disconnectFromBus(mConnectionName);
}

QDBusPendingCall tcScreenReader::send(const QString& acPath, const char* acInterface,
                                      const char* acMethod,
                                      const QVariantList& acArguments) const
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        mService, acPath, QString::fromLatin1(acInterface), QString::fromLatin1(acMethod));
    question.setArguments(acArguments);
    return mBus.asyncCall(question, cAnswerLimitMs);
}

QDBusPendingCall tcScreenReader::sendGet(const QString& acPath, const char* acName) const
{
    return send(acPath, "org.freedesktop.DBus.Properties", "Get",
                {QString::fromLatin1(cAccessible), QString::fromLatin1(acName)});
}

bool tcScreenReader::attach(qint64 anProcessId)
{
    QDBusConnectionInterface* bus = mBus.interface();
    if (!bus)
        return false;
    const QStringList names = bus->registeredServiceNames();
    for (const QString& name : names) {
        const QDBusReply<uint> process = bus->servicePid(name);
        if (!process.isValid() || process.value() != anProcessId)
            continue;
        mService = name;
        // A program may have a second line to the bus, on which it describes nothing.
        if (!paths(send(cRoot, cAccessible, "GetChildren")).isEmpty())
            return true;
    }
    mService.clear();
    return false;
}

/// All of them at once: a program that is busy answers when it comes round to it.
QVector<tcScreenReader::tcNode> tcScreenReader::describe(const QStringList& acPaths) const
{
    struct tcQuestions
    {
        QDBusPendingCall states;
        QDBusPendingCall kind;
        QDBusPendingCall name;
        QDBusPendingCall parts;
    };
    QVector<tcNode> nodes;
    std::vector<tcQuestions> questions;
    for (const QString& path : acPaths)
        questions.push_back({send(path, cAccessible, "GetState"),
                             send(path, cAccessible, "GetRole"), sendGet(path, "Name"),
                             send(path, cAccessible, "GetChildren")});
    for (int index = 0; index < acPaths.size(); ++index) {
        const tcQuestions& asked = questions[size_t(index)];
        const auto states = qdbus_cast<QList<uint>>(answer(asked.states));
        tcNode node;
        node.showing = hasState(states, cStateShowing);
        node.parts = paths(asked.parts);
        node.widget.path = acPaths.at(index);
        node.widget.kind = static_cast<teKind>(answer(asked.kind).toUInt());
        node.widget.name = answer(asked.name).value<QDBusVariant>().variant().toString();
        node.widget.enabled = hasState(states, cStateSensitive);
        node.widget.checked = hasState(states, cStateChecked);
        node.widget.focused = hasState(states, cStateFocused);
        nodes.append(node);
    }
    return nodes;
}

bool tcScreenReader::visit(const QStringList& acPaths, const tcWanted& acWanted,
                           tcWidget& arFound) const
{
    const QVector<tcNode> nodes = describe(acPaths);
    for (const tcNode& node : nodes) {
        if (!node.showing)
            continue;
        if (acWanted(node.widget)) {
            arFound = node.widget;
            arFound.place = rectangle(answer(send(node.widget.path, cComponent, "GetExtents",
                                                  {QVariant(cScreenCoordinates)})));
            return true;
        }
        // The entries of a combo box are asked for by themselves.
        const bool goesOn = node.widget.kind != teKind::ComboBox && !node.parts.isEmpty();
        if (goesOn && visit(node.parts, acWanted, arFound))
            return true;
    }
    return false;
}

tcScreenReader::tcWidget tcScreenReader::find(const tcWanted& acWanted) const
{
    tcWidget found;
    visit(paths(send(cRoot, cAccessible, "GetChildren")), acWanted, found);
    return found;
}

tcScreenReader::tcWidget tcScreenReader::again(const tcWidget& acWidget) const
{
    const tcNode now = describe({acWidget.path}).first();
    return now.showing ? now.widget : tcWidget();
}

bool tcScreenReader::isOpen(const tcWidget& acComboBox) const
{
    const QStringList parts = paths(send(acComboBox.path, cAccessible, "GetChildren"));
    return !parts.isEmpty() && describe({parts.first()}).first().showing;
}

QString tcScreenReader::text(const tcWidget& acWidget) const
{
    return acWidget.found() ? answer(send(acWidget.path, cText, "GetText", {0, -1})).toString()
                            : QString();
}

QStringList tcScreenReader::entries(const tcWidget& acComboBox) const
{
    QStringList names;
    if (!acComboBox.found())
        return names;
    // The list comes first among the parts of the box.
    const QStringList parts = paths(send(acComboBox.path, cAccessible, "GetChildren"));
    if (parts.isEmpty())
        return names;
    const QVector<tcNode> items
        = describe(paths(send(parts.first(), cAccessible, "GetChildren")));
    for (const tcNode& item : items)
        names.append(item.widget.name);
    return names;
}
