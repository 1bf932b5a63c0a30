#include "camera/logic/tcLogLimit.h"

namespace
{

constexpr int cHighestCode = 0xFFFF;

/// Code of the character to remove, 0 for none.
ushort victim(int anLength, int anLimit)
{
    const qint64 excess = qint64(anLength) - anLimit;
    return excess > 0 && excess <= cHighestCode ? static_cast<ushort>(excess) : ushort(0);
}

} // namespace

tcLogLimit::tcLogLimit() = default;
tcLogLimit::~tcLogLimit() = default;

void tcLogLimit::clear()
{
    for (std::unique_ptr<tcPage>& page : mCounts)
        page.reset();
    mLength = 0;
}

void tcLogLimit::add(QChar aCharacter)
{
    std::unique_ptr<tcPage>& page = mCounts[aCharacter.row()];
    if (!page)
        page = std::make_unique<tcPage>();
    ++(*page)[aCharacter.cell()];
    ++mLength;
}

void tcLogLimit::add(const QString& acText)
{
    for (const QChar character : acText)
        add(character);
}

void tcLogLimit::remove(QChar aCharacter)
{
    if (const std::unique_ptr<tcPage>& page = mCounts[aCharacter.row()]) {
        --(*page)[aCharacter.cell()];
        --mLength;
    }
}

bool tcLogLimit::removesAnything(int anLimit) const
{
    const QChar character(victim(mLength, anLimit));
    const std::unique_ptr<tcPage>& page = mCounts[character.row()];
    return !character.isNull() && page && (*page)[character.cell()] > 0;
}

QString tcLogLimit::applied(const QString& acText, int anLimit)
{
    QString text = acText;
    if (const ushort code = victim(text.size(), anLimit))
        text.remove(QChar(code), Qt::CaseSensitive);
    return text;
}
