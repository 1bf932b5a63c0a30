#pragma once

#include <QMultiHash>
#include <QSharedPointer>
#include <QString>

#include <functional>

class QSettings;

/// Gives an object a name and a debug level of its own; a second base of each concrete source.
/// Whoever looks for chatty objects finds the living ones in the index. GUI thread only.
class tcDebugSource
{
public:
    using tcIndex = QMultiHash<QString, tcDebugSource*>;
    using tcSettingsProvider = std::function<QSharedPointer<QSettings>()>;

    /// Reads the level from the settings, if somebody provides any, and enters the index.
    explicit tcDebugSource(const char* acClassName, bool abUnlisted = false);
    tcDebugSource(const tcDebugSource&) = delete;
    tcDebugSource& operator=(const tcDebugSource&) = delete;

    virtual void setDebugLevel(int anLevel);
    virtual ~tcDebugSource();

    QString debugName() const { return mName; }
    QString debugId() const { return mId; } ///< the object's address, hexadecimal
    int debugLevel() const { return mLevel; }

    /// Every living listed object by name, several under one name.
    static const tcIndex& index();
    /// Where debug levels come from; empty unless somebody sets it, then every level is 0.
    static void setSettingsProvider(tcSettingsProvider aProvider);

private:
    static tcIndex& mutableIndex();
    static tcSettingsProvider& provider();

    QString mName;
    QString mId;
    qint32 mLevel = 0;
    bool mUnlisted = false; ///< neither put into nor taken from the index
};
