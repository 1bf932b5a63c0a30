#include "app/logic/tcHexDump.h"

#include <QTest>

namespace
{

QByteArray counting(int anCount)
{
    QByteArray bytes;
    for (int i = 0; i < anCount; ++i)
        bytes.append(static_cast<char>(i & 0xFF));
    return bytes;
}

/// The same text by way of string arguments, row by row.
QString byTheBook(const QByteArray& acBytes)
{
    QString dump;
    for (int row = 0; row < acBytes.size(); row += 16) {
        dump += QStringLiteral("%1 ").arg(row & 0xFF, 8, 16, QLatin1Char('0'));
        QString characters;
        for (int at = row; at < row + 16; ++at) {
            if (at >= acBytes.size()) {
                dump += QStringLiteral("   ");
                continue;
            }
            const auto byte = static_cast<uchar>(acBytes.at(at));
            dump += QStringLiteral("%1 ").arg(byte, 2, 16, QLatin1Char('0'));
            characters += byte >= 0x20 && byte <= 0x7E ? QChar(byte) : QChar('.');
        }
        dump += ' ' + characters + '\n';
    }
    return dump;
}

} // namespace

class tst_HexDump : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rows_data();
    void rows();
    void nothingGivesNothing();
    void offsetStartsAnewAfter256Bytes();
    void offsetsOf300Bytes();
    void everyByteValue();
    void everyLengthAgreesWithStringArguments();
};

void tst_HexDump::rows_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("dump");
    const QString first
        = QStringLiteral("00000000 3c 56 45 52 53 3e 3c 41 43 4b 3e 3c 31 2e 35 3e  "
                         "<VERS><ACK><1.5>\n");
    QTest::newRow("one byte") << QByteArray("A") << "00000000 41 " + QString(45, ' ') + " A\n";
    QTest::newRow("a whole row") << QByteArray("<VERS><ACK><1.5>") << first;
    QTest::newRow("twenty bytes: two rows, twelve fillers")
        << QByteArray("<VERS><ACK><1.5>\r\nOK")
        << first + "00000010 0d 0a 4f 4b " + QString(36, ' ') + " ..OK\n";
    QTest::newRow("neither printable nor ASCII")
        << QByteArray("\x00\x01\x1f\x20\x7e\x7f\x80\xff", 8)
        << "00000000 00 01 1f 20 7e 7f 80 ff " + QString(24, ' ') + " ... ~...\n";
}

void tst_HexDump::rows()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, dump);
    QCOMPARE(tcHexDump::text(bytes), dump);
    QCOMPARE(tcHexDump::text(bytes.constData(), bytes.size()), dump);
}

void tst_HexDump::nothingGivesNothing()
{
    QCOMPARE(tcHexDump::text(QByteArray()), QString());
    QCOMPARE(tcHexDump::text("text", 0), QString());
    QCOMPARE(tcHexDump::text("text", -1), QString());
    QCOMPARE(tcHexDump::text(nullptr, 4), QString());
}

void tst_HexDump::offsetStartsAnewAfter256Bytes()
{
    const QStringList rows = tcHexDump::text(counting(257)).split('\n');
    QCOMPARE(rows.at(15).left(9), QStringLiteral("000000f0 "));
    QCOMPARE(rows.at(16).left(12), QStringLiteral("00000000 00 "));
}

void tst_HexDump::offsetsOf300Bytes()
{
    QStringList offsets;
    for (const QString& row : tcHexDump::text(counting(300)).split('\n', Qt::SkipEmptyParts))
        offsets.append(row.left(8));
    QCOMPARE(offsets.size(), 19);
    QCOMPARE(offsets.mid(14),
             QStringList({"000000e0", "000000f0", "00000000", "00000010", "00000020"}));
}

void tst_HexDump::everyByteValue()
{
    QCOMPARE(tcHexDump::text(counting(256)), byTheBook(counting(256)));
}

void tst_HexDump::everyLengthAgreesWithStringArguments()
{
    for (int length = 0; length <= 80; ++length)
        QCOMPARE(tcHexDump::text(counting(length)), byTheBook(counting(length)));
    QCOMPARE(tcHexDump::text(counting(5000)), byTheBook(counting(5000)));
}

QTEST_GUILESS_MAIN(tst_HexDump)
#include "tst_hexdump.moc"
