#pragma once

#include <QString>

#include <array>
#include <memory>

/// Length rule of the log view: a text longer than the limit loses every character whose code
/// equals the excess.
///
/// As designed: the rule does not cut the oldest text, so a log can stay above the limit. The
/// count of each character is kept, so that "nothing to remove" is known without a look at the
/// text, however long it is. An excess above 65535 is no character's code.
class tcLogLimit
{
public:
    tcLogLimit();
    ~tcLogLimit();

    void clear();
    void add(QChar aCharacter);
    void add(const QString& acText);
    /// One that was added before.
    void remove(QChar aCharacter);
    int length() const { return mLength; }

    /// The rule would change the text that was counted.
    bool removesAnything(int anLimit) const;

    /// The text after the rule.
    static QString applied(const QString& acText, int anLimit);

private:
    using tcPage = std::array<int, 256>;
    std::array<std::unique_ptr<tcPage>, 256> mCounts; ///< by high byte, then low byte
    int mLength = 0;
};
