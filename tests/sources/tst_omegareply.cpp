#include "sources/logic/tcOmegaReply.h"

#include <QtTest>

using tcOmegaReply::teKind;
Q_DECLARE_METATYPE(tcOmegaReply::teKind)

class tst_OmegaReply : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void line_data();
    void line();
    void textKeepsEveryByte();
};

void tst_OmegaReply::line_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<teKind>("kind");
    QTest::addColumn<double>("value");
    const auto reading = [](const char* name, const char* line, double value) {
        QTest::newRow(name) << QString::fromLatin1(line) << teKind::Reading << value;
    };
    const auto bad = [](const char* name, const char* line) {
        QTest::newRow(name) << QString::fromLatin1(line) << teKind::Bad << 0.0;
    };
    const auto unframed = [](const char* name, const char* line) {
        QTest::newRow(name) << QString::fromLatin1(line) << teKind::Unframed << 0.0;
    };
    reading("plain", ">23.4\n", 23.4);
    reading("carriage return", ">23.4\r\n", 23.4);
    reading("blanks around the number", "> 23.4 \r\n", 23.4);
    reading("whole", ">0\n", 0);
    reading("negative", ">-40.5\n", -40.5);
    reading("plus sign", ">+7.25\n", 7.25);
    reading("exponent", ">1.5e2\n", 150);
    reading("just below the upper bound", ">999.9999\n", 999.9999);
    reading("just above the lower bound", ">-272.9999\n", -272.9999);
    bad("upper bound itself", ">1000\n");
    bad("lower bound itself", ">-273\n");
    bad("above", ">1e300\n");
    bad("below", ">-274\n");
    bad("not a number", ">nan\n");
    bad("infinite", ">inf\n");
    bad("negative infinite", ">-inf\n");
    bad("no number", ">open\n");
    bad("empty", ">\n");
    bad("two numbers", ">1 2\n");
    bad("unit behind it", ">23.4C\n");
    bad("decimal comma", ">23,4\n");
    bad("grouped digits", ">1,000\n");
    bad("two signs", ">>23.4\n");
    bad("hexadecimal", ">0x10\n");
    unframed("no sign", "23.4\n");
    unframed("blank before the sign", " >23.4\n");
    unframed("no line feed", ">23.4");
    unframed("carriage return alone", ">23.4\r");
    unframed("echo of the request", "c\r\n");
    unframed("empty line", "\n");
    unframed("nothing", "");
}

void tst_OmegaReply::line()
{
    QFETCH(QString, line);
    const tcOmegaReply::tcResult result = tcOmegaReply::parse(line);
    QTEST(result.kind, "kind");
    QTEST(result.value, "value");
}

void tst_OmegaReply::textKeepsEveryByte()
{
    QByteArray bytes;
    for (int code = 0; code < 256; ++code)
        bytes.append(char(code));
    const QString text = tcOmegaReply::toText(bytes);
    QCOMPARE(text.size(), 256);
    for (int code = 0; code < 256; ++code)
        QCOMPARE(int(text.at(code).unicode()), code);
}

QTEST_APPLESS_MAIN(tst_OmegaReply)
#include "tst_omegareply.moc"
