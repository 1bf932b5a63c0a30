#include "sim/chartdemo/tcDemoPalette.h"
#include "sim/chartdemo/tcDemoWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>

#include <cstdio>

namespace
{
struct tcNumber
{
    const char* name;
    const char* text;
    const char* value;
    int minimum;
    int maximum;
};

constexpr tcNumber cNumbers[] = {
    {"curves", "Curves, 1 to 16.", "6", 1, 16},
    {"samples", "Samples that each curve begins with.", "400", 0, 100000},
    {"keep", "Samples that each curve keeps.", "1000", 100, 100000},
    {"span", "Seconds shown.", "60", 1, 86400},
    {"seed", "Seed of the values.", "1", 0, 2147483647},
    {"markers", "Markers to place.", "0", 0, 10000},
};

bool readNumber(const QCommandLineParser& acParser, const tcNumber& acNumber, int& arValue)
{
    bool isNumber = false;
    arValue = acParser.value(QString::fromLatin1(acNumber.name)).toInt(&isNumber);
    if (isNumber && arValue >= acNumber.minimum && arValue <= acNumber.maximum)
        return true;
    std::fprintf(stderr, "chartdemo: --%s takes a number from %d to %d\n", acNumber.name,
                 acNumber.minimum, acNumber.maximum);
    return false;
}

void declare(QCommandLineParser& arParser)
{
    arParser.setApplicationDescription(
        QStringLiteral("Opens a strip chart with made-up readings on both axes."));
    arParser.addHelpOption();
    for (const tcNumber& number : cNumbers)
        arParser.addOption({QString::fromLatin1(number.name), QString::fromLatin1(number.text),
                            QStringLiteral("n"), QString::fromLatin1(number.value)});
    arParser.addOptions({
        {QStringLiteral("rate"), QStringLiteral("Readings a second and curve, up to 1000."),
         QStringLiteral("hz"), QStringLiteral("4")},
        {QStringLiteral("theme"), QStringLiteral("light or dark; else the desktop's own."),
         QStringLiteral("name")},
        {QStringLiteral("size"), QStringLiteral("Size of the window, for example 800x460."),
         QStringLiteral("WxH")},
        {QStringLiteral("long-names"), QStringLiteral("Gives the curves long names.")},
        {QStringLiteral("min-max"),
         QStringLiteral("Shows lines of smallest and largest value.")},
        {QStringLiteral("grab"), QStringLiteral("Saves a picture after two seconds and quits."),
         QStringLiteral("file")},
    });
}

bool readOptions(const QCommandLineParser& acParser, tcDemoWindow::tcOptions& arOptions)
{
    int seed = 0;
    int* targets[]
        = {&arOptions.curves, &arOptions.samples, &arOptions.keep, &arOptions.spanS, &seed,
           &arOptions.markers};
    for (std::size_t i = 0; i < std::size(cNumbers); ++i)
        if (!readNumber(acParser, cNumbers[i], *targets[i]))
            return false;
    arOptions.seed = static_cast<quint32>(seed);
    arOptions.rate = acParser.value(QStringLiteral("rate")).toDouble();
    arOptions.longNames = acParser.isSet(QStringLiteral("long-names"));
    arOptions.minMax = acParser.isSet(QStringLiteral("min-max"));
    if (arOptions.rate > 0.0 && arOptions.rate <= 1000.0)
        return true;
    std::fputs("chartdemo: --rate takes a number above 0, up to 1000\n", stderr);
    return false;
}

void resize(tcStripChart& arChart, const QString& acSize)
{
    const QStringList parts = acSize.split('x');
    if (parts.size() == 2)
        arChart.resize(parts.at(0).toInt(), parts.at(1).toInt());
}
} // namespace

int main(int argc, char** argv)
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("chartdemo"));
    QApplication::setApplicationDisplayName(QStringLiteral("Chart Demo"));

    QCommandLineParser parser;
    declare(parser);
    parser.process(app);
    tcDemoWindow::tcOptions options;
    if (!readOptions(parser, options)
        || !tcDemoPalette::apply(parser.value(QStringLiteral("theme"))))
        return 1;

    tcDemoWindow demo(options);
    resize(demo.chart(), parser.value(QStringLiteral("size")));
    demo.chart().show();
    bool saved = true;
    if (parser.isSet(QStringLiteral("grab")))
        QTimer::singleShot(2000, &app, [&] {
            saved = demo.chart().grab().save(parser.value(QStringLiteral("grab")));
            app.quit();
        });
    const int code = app.exec();
    return saved ? code : 1;
}
