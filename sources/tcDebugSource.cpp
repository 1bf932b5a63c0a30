#include "sources/tcDebugSource.h"

#include <QSettings>

#include <utility>

tcDebugSource::tcDebugSource(const char* acClassName, bool abUnlisted)
    : mName(QString::fromLatin1(acClassName)), mUnlisted(abUnlisted)
{
    if (provider()) {
        if (const QSharedPointer<QSettings> settings = provider()()) {
            const QString key = QStringLiteral("debugLevel");
            mLevel = settings->value(mName.isEmpty() ? key : mName + u'/' + key, 0).toInt();
        }
    }
    if (mUnlisted)
        return;
    mutableIndex().insert(mName, this);
    mId = QString::number(reinterpret_cast<quintptr>(this), 16).replace(u' ', u'_');
}

void tcDebugSource::setDebugLevel(int anLevel)
{
    mLevel = anLevel;
}

tcDebugSource::~tcDebugSource()
{
    if (!mUnlisted)
        mutableIndex().remove(mName, this);
}

const tcDebugSource::tcIndex& tcDebugSource::index()
{
    return mutableIndex();
}

void tcDebugSource::setSettingsProvider(tcSettingsProvider aProvider)
{
    provider() = std::move(aProvider);
}

// Both outlive every static object that might still be a debug source, hence never destroyed.
tcDebugSource::tcIndex& tcDebugSource::mutableIndex()
{
    static auto* index = new tcIndex;
    return *index;
}

tcDebugSource::tcSettingsProvider& tcDebugSource::provider()
{
    static auto* hook = new tcSettingsProvider;
    return *hook;
}
