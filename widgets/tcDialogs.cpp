#include "widgets/tcDialogs.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QStandardPaths>

namespace
{

tcDialogs* sInstalled = nullptr;

template <typename T>
std::optional<T> unlessCancelled(bool abOk, const T& acValue)
{
    return abOk ? std::optional<T>(acValue) : std::nullopt;
}

/// Names of files and curves stand in the text, whose brackets are no tags.
void showBox(QMessageBox::Icon anIcon, QWidget* apParent, const QString& acTitle,
             const QString& acText)
{
    QMessageBox box(anIcon, acTitle, acText, QMessageBox::Ok, apParent);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

/// Where nobody made the documents folder yet, home is proposed in its place: else the folder's
/// name would stand there as that of a file.
QString withFolderThatIsThere(const QString& acStart)
{
    const QString documents
        = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const bool within = acStart == documents || acStart.startsWith(documents + '/');
    if (documents.isEmpty() || !within || QDir(documents).exists())
        return acStart;
    return QDir::homePath() + acStart.mid(documents.size());
}

} // namespace

tcDialogs& tcDialogs::current()
{
    static tcDialogs own;
    return sInstalled ? *sInstalled : own;
}

void tcDialogs::install(tcDialogs* apDialogs)
{
    sInstalled = apDialogs;
}

QString tcDialogs::openFile(QWidget* apParent, const QString& acCaption, const QString& acStart,
                            const QString& acFilter)
{
    return QFileDialog::getOpenFileName(apParent, acCaption, withFolderThatIsThere(acStart),
                                        acFilter);
}

QString tcDialogs::saveFile(QWidget* apParent, const QString& acCaption, const QString& acStart,
                            const QString& acFilter)
{
    return QFileDialog::getSaveFileName(apParent, acCaption, withFolderThatIsThere(acStart),
                                        acFilter);
}

QString tcDialogs::appendFile(QWidget* apParent, const QString& acCaption,
                              const QString& acStart, const QString& acFilter)
{
    return QFileDialog::getSaveFileName(apParent, acCaption, withFolderThatIsThere(acStart),
                                        acFilter, nullptr, QFileDialog::DontConfirmOverwrite);
}

std::optional<QString> tcDialogs::text(QWidget* apParent, const QString& acTitle,
                                       const QString& acLabel, const QString& acValue)
{
    bool ok = false;
    const QString answer
        = QInputDialog::getText(apParent, acTitle, acLabel, QLineEdit::Normal, acValue, &ok);
    return unlessCancelled(ok, answer);
}

std::optional<int> tcDialogs::integer(QWidget* apParent, const QString& acTitle,
                                      const QString& acLabel, const tcIntRange& acRange)
{
    bool ok = false;
    const int answer
        = QInputDialog::getInt(apParent, acTitle, acLabel, acRange.value, acRange.minimum,
                               acRange.maximum, acRange.step, &ok);
    return unlessCancelled(ok, answer);
}

std::optional<QString> tcDialogs::item(QWidget* apParent, const QString& acTitle,
                                       const QString& acLabel, const QStringList& acItems)
{
    bool ok = false;
    const QString answer
        = QInputDialog::getItem(apParent, acTitle, acLabel, acItems, 0, false, &ok);
    return unlessCancelled(ok, answer);
}

void tcDialogs::warning(QWidget* apParent, const QString& acTitle, const QString& acText)
{
    showBox(QMessageBox::Warning, apParent, acTitle, acText);
}

void tcDialogs::information(QWidget* apParent, const QString& acTitle, const QString& acText)
{
    showBox(QMessageBox::Information, apParent, acTitle, acText);
}

void tcDialogs::bell()
{
    QApplication::beep();
}

void tcDialogs::about(const QString& acTitle, const QString& acRichText)
{
    QMessageBox box(QMessageBox::NoIcon, acTitle, acRichText, QMessageBox::Ok);
    box.setTextFormat(Qt::RichText);
    box.setTextInteractionFlags(Qt::TextBrowserInteraction);
    box.exec();
}
