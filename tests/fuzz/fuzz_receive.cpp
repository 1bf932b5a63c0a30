// Received bytes on their way to replies: however they are cut, the same replies come out, each
// is one, and what is routed of them never fails.

#include "app/logic/tcHexDump.h"
#include "camera/logic/tcLongLines.h"
#include "camera/logic/tcReply.h"
#include "camera/logic/tcRxAssembler.h"
#include "camera/logic/tcRxHistory.h"

#include <QStringList>
#include <QTextCodec>
#include <QTextDecoder>

#include <cmath>
#include <cstdlib>
#include <memory>

namespace
{

void must(bool abTrue)
{
    if (!abTrue)
        std::abort();
}

void drain(tcRxAssembler& arAssembler, QStringList& arReplies)
{
    while (const auto reply = arAssembler.nextReply())
        arReplies.append(*reply);
}

QStringList replies(const QStringList& acPieces)
{
    tcRxAssembler assembler;
    QStringList found;
    for (const QString& piece : acPieces) {
        assembler.add(piece);
        drain(assembler, found);
    }
    if (assembler.hasUnfinishedReply())
        found.append(assembler.takeUnfinishedReply());
    return found;
}

QStringList cut(const QString& acText, int anLength)
{
    QStringList pieces;
    for (int at = 0; at < acText.size(); at += anLength)
        pieces.append(acText.mid(at, anLength));
    return pieces;
}

void route(const QString& acReply)
{
    must(tcReply::isReply(acReply));
    const QString text = tcReply::normalised(acReply);
    must(!text.contains("\n\n"));
    if (const auto reading = tcReply::sensorReading(text))
        must(reading->number >= 0 && reading->number <= 9 && std::isfinite(reading->value));
    if (const auto cooler = tcReply::coolerState(text))
        must(std::isfinite(cooler->setPoint));
    must(tcLongLines::broken(text).remove('\n') == QString(text).remove('\n'));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* acData, size_t anSize)
{
    if (anSize < 2)
        return 0;
    const int length = 1 + acData[0] % 19;
    const int limit = acData[1];
    const QByteArray bytes(reinterpret_cast<const char*>(acData) + 2, int(anSize) - 2);

    const QString text = QString::fromLatin1(bytes);
    const QStringList whole = replies({text});
    must(replies(cut(text, length)) == whole);
    for (const QString& reply : whole)
        route(reply);

    const std::unique_ptr<QTextDecoder> decoder(
        QTextCodec::codecForName("UTF-8")->makeDecoder());
    tcRxHistory history(limit);
    QStringList decoded;
    for (int at = 0; at < bytes.size(); at += length) {
        decoded.append(decoder->toUnicode(bytes.mid(at, length)));
        history.append(bytes.mid(at, length));
    }
    for (const QString& reply : replies(decoded))
        route(reply);
    must(history.bytes() == bytes.right(limit));
    must(tcHexDump::text(bytes).count('\n') == (bytes.size() + 15) / 16);
    return 0;
}
