#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class QWidget;

/// Every question and box that the program puts before the operator goes through here, so that
/// the wording of a dialog stands beside its caller and its behaviour in one place.
///
/// The default asks with the desktop's own dialogs. All run modally on the GUI thread; while
/// one is open the event loop runs, so callers must bear being re-entered.
class tcDialogs
{
public:
    struct tcIntRange
    {
        int value = 0;
        int minimum = 0;
        int maximum = 0;
        int step = 1;
    };

    virtual ~tcDialogs() = default;

    /// The dialogs in use; never null.
    static tcDialogs& current();
    /// Puts others in their place until they are taken back with null. Not owned.
    static void install(tcDialogs* apDialogs);

    /// Empty when cancelled, as with the two below; acStart may name a folder or a file.
    virtual QString openFile(QWidget* apParent, const QString& acCaption,
                             const QString& acStart, const QString& acFilter);
    virtual QString saveFile(QWidget* apParent, const QString& acCaption,
                             const QString& acStart, const QString& acFilter);
    /// For a file that keeps what it holds: nobody asks whether it may be replaced.
    virtual QString appendFile(QWidget* apParent, const QString& acCaption,
                               const QString& acStart, const QString& acFilter);
    /// Nothing when cancelled, which differs from an empty text.
    virtual std::optional<QString> text(QWidget* apParent, const QString& acTitle,
                                        const QString& acLabel, const QString& acValue);
    virtual std::optional<int> integer(QWidget* apParent, const QString& acTitle,
                                       const QString& acLabel, const tcIntRange& acRange);
    virtual std::optional<QString> item(QWidget* apParent, const QString& acTitle,
                                        const QString& acLabel, const QStringList& acItems);
    /// One button, OK.
    virtual void warning(QWidget* apParent, const QString& acTitle, const QString& acText);
    virtual void information(QWidget* apParent, const QString& acTitle, const QString& acText);
    /// The desktop's bell, for whoever looks elsewhere.
    virtual void bell();
    /// Rich text about the program; no parent.
    virtual void about(const QString& acTitle, const QString& acRichText);
};
