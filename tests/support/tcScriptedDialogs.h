#pragma once

#include "widgets/tcDialogs.h"

#include <QList>

#include <functional>

/// Dialogs that answer from a script and remember what they were asked. In force for as long as
/// the object lives.
class tcScriptedDialogs : public tcDialogs
{
public:
    struct tcAsked
    {
        QString kind;   ///< name of the operation
        QString title;  ///< title or caption
        QString text;   ///< label, text, or start folder or file
        QString detail; ///< filter, initial value, or the items joined by "|"
    };

    tcScriptedDialogs() { install(this); }
    ~tcScriptedDialogs() override { install(nullptr); }

    QString fileAnswer; ///< of all that ask for a file; empty cancels
    std::optional<QString> textAnswer;
    std::optional<int> integerAnswer;
    std::optional<QString> itemAnswer;
    std::function<void()> whileOpen; ///< what happens behind the operator's back
    QList<tcAsked> asked;
    int bells = 0;

    QString openFile(QWidget*, const QString& acCaption, const QString& acStart,
                     const QString& acFilter) override
    {
        note({"openFile", acCaption, acStart, acFilter});
        return fileAnswer;
    }
    QString saveFile(QWidget*, const QString& acCaption, const QString& acStart,
                     const QString& acFilter) override
    {
        note({"saveFile", acCaption, acStart, acFilter});
        return fileAnswer;
    }
    QString appendFile(QWidget*, const QString& acCaption, const QString& acStart,
                       const QString& acFilter) override
    {
        note({"appendFile", acCaption, acStart, acFilter});
        return fileAnswer;
    }
    std::optional<QString> text(QWidget*, const QString& acTitle, const QString& acLabel,
                                const QString& acValue) override
    {
        note({"text", acTitle, acLabel, acValue});
        return textAnswer;
    }
    std::optional<int> integer(QWidget*, const QString& acTitle, const QString& acLabel,
                               const tcIntRange& acRange) override
    {
        note({"integer", acTitle, acLabel,
              QStringLiteral("%1 %2..%3 step %4")
                  .arg(acRange.value)
                  .arg(acRange.minimum)
                  .arg(acRange.maximum)
                  .arg(acRange.step)});
        return integerAnswer;
    }
    std::optional<QString> item(QWidget*, const QString& acTitle, const QString& acLabel,
                                const QStringList& acItems) override
    {
        note({"item", acTitle, acLabel, acItems.join('|')});
        return itemAnswer;
    }
    void warning(QWidget*, const QString& acTitle, const QString& acText) override
    {
        note({"warning", acTitle, acText, {}});
    }
    void information(QWidget*, const QString& acTitle, const QString& acText) override
    {
        note({"information", acTitle, acText, {}});
    }
    void bell() override { ++bells; }
    void about(const QString& acTitle, const QString& acRichText) override
    {
        note({"about", acTitle, acRichText, {}});
    }

private:
    void note(const tcAsked& acAsked)
    {
        asked.append(acAsked);
        if (whileOpen)
            whileOpen();
    }
};
