#pragma once

#include "app/tcSettings.h"
#include "tests/stripchart/tcChartProbe.h"
#include "tests/support/tcScriptedDialogs.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

/// A chart called "Cam:1/T" with two live curves, scripted dialogs, a folder and settings of
/// its own.
class tcFilesProbe : public tcChartProbe
{
public:
    tcFilesProbe()
    {
        tcSettings::setDefaultFile(path("settings.ini"));
        chart->setChartName(QStringLiteral("Cam:1/T"));
        a = curve(QStringLiteral("A"), 0);
        b = curve(QStringLiteral("B"), 1);
        key = chart->addCurve(a.get());
        chart->addCurve(b.get(), key);
    }
    ~tcFilesProbe() { tcSettings::setDefaultFile({}); }

    QString path(const char* acName) const
    {
        return folder.filePath(QString::fromLatin1(acName));
    }
    QByteArray content(const char* acName) const
    {
        QFile file(path(acName));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
    }
    QString put(const char* acName, const QByteArray& acBytes) const
    {
        QFile file(path(acName));
        if (!file.open(QIODevice::WriteOnly) || file.write(acBytes) != acBytes.size())
            qFatal("cannot write %s", acName);
        return file.fileName();
    }
    static QString documents()
    {
        return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    }
    QList<tcScriptedDialogs::tcAsked> asked(const char* acKind) const
    {
        QList<tcScriptedDialogs::tcAsked> all;
        for (const auto& one : dialogs.asked)
            if (one.kind == QLatin1String(acKind))
                all << one;
        return all;
    }
    /// "title=time:value time:value" of each filed curve.
    QStringList shownCurves() const
    {
        QStringList all;
        for (const tcStripCurve* curve : chart->curves()) {
            QStringList samples;
            for (size_t i = 0; i < curve->dataSize(); ++i)
                samples << QStringLiteral("%1:%2")
                               .arg(qint64(curve->sample(int(i)).x()))
                               .arg(curve->sample(int(i)).y());
            all << curve->title().text() + '=' + samples.join(' ');
        }
        return all;
    }

    QTemporaryDir folder;
    tcScriptedDialogs dialogs;
    std::unique_ptr<tcStripCurve> a;
    std::unique_ptr<tcStripCurve> b;
    QUuid key;
};

/// The log lines of the program while it lives.
class tcMessages
{
public:
    tcMessages()
    {
        list().clear();
        mBefore = qInstallMessageHandler(
            [](QtMsgType aType, const QMessageLogContext&, const QString& acText) {
                static const char* const cNames[]
                    = {"debug", "warning", "critical", "fatal", "info"};
                list() << QString::fromLatin1(cNames[aType]) + ": " + acText;
            });
    }
    ~tcMessages() { qInstallMessageHandler(mBefore); }
    static QStringList& list()
    {
        static QStringList lines;
        return lines;
    }

private:
    QtMessageHandler mBefore;
};
