#include "camera/logic/tcPresetList.h"

#include "camera/logic/tcCmvNames.h"
#include "camera/logic/tcIniArray.h"
#include "camera/logic/tcPresetTables.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTextCodec>

namespace
{

/// What the settings library would choke on, or wait for without end.
QString problemBeforeReading(const QString& acPath)
{
    const QFileInfo info(acPath);
    if (!info.exists())
        return {};
    if (!info.isFile())
        return QStringLiteral("no regular file");
    if (info.size() > tcPresetList::cMaxFileBytes)
        return QStringLiteral("too large");
    return {};
}

QString problemOf(QSettings::Status aeStatus)
{
    switch (aeStatus) {
    case QSettings::NoError:
        return {};
    case QSettings::AccessError:
        return QStringLiteral("access error");
    case QSettings::FormatError:
        break;
    }
    return QStringLiteral("format error");
}

/// What the library says of the file when it reads it first. Asked again it only looks whether
/// the file has changed, and then says nothing of what was wrong with it.
QString problemOfFirstReading(const QString& acPath, QSettings::Status aeStatus)
{
    struct tcBroken
    {
        QString path;
        QDateTime changed;
        qint64 size = 0;
        QString problem;
    };
    static tcBroken last;
    const QFileInfo info(acPath);
    const QString path = info.absoluteFilePath();
    const QString problem = problemOf(aeStatus);
    if (!problem.isEmpty())
        last = {path, info.lastModified(), info.size(), problem};
    const bool same
        = path == last.path && info.lastModified() == last.changed && info.size() == last.size;
    return same ? last.problem : QString();
}

/// Editors write UTF-8, where the library expects the Latin-1 of older ones.
bool isUtf8(const QString& acPath)
{
    QFile file(acPath);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.readAll();
    QTextCodec::ConverterState state;
    QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

/// As a C text sees it: up to its first NUL.
QByteArray cText(const QVariant& acValue)
{
    return QByteArray(acValue.toString().toLocal8Bit().constData());
}

} // namespace

tcPresetList::tcPresetList() : mPresets(1) { }

tcPresetList::tcFile tcPresetList::read(const QString& acPath, teCmvType aeType)
{
    tcFile read;
    read.problem = problemBeforeReading(acPath);
    if (!read.problem.isEmpty())
        return read;
    QSettings file(acPath, QSettings::IniFormat);
    read.problem = problemOfFirstReading(acPath, file.status());
    if (isUtf8(acPath))
        file.setIniCodec("UTF-8");
    const QString array = tcCmvNames::presetArray(aeType);
    if (!read.problem.isEmpty() || array.isEmpty())
        return read;
    file.beginGroup(array);
    read.size = file.value(QStringLiteral("size")).toInt();
    for (const int number : tcIniArray::entryNumbers(file, read.size)) {
        const QString entry = QString::number(number) + '/';
        const tcTexts row{cText(file.value(entry + "name")), cText(file.value(entry + "cmds"))};
        if (!row.label.isEmpty() && !row.script.isEmpty())
            read.rows.append(row);
    }
    return read;
}

void tcPresetList::rebuild(teCmvType aeType, const tcFile& acFile)
{
    const tcPresetTables::tcTable builtIns = tcPresetTables::of(aeType);
    mPresets.clear();
    mTexts.clear();
    mBuiltIns = builtIns.count;
    mPresets.reserve(static_cast<size_t>(builtIns.count)
                     + static_cast<size_t>(acFile.rows.size()) + 1);
    for (const tcPreset& preset : builtIns)
        append({QByteArray(preset.label), QByteArray(preset.script)});
    for (const tcTexts& row : acFile.rows)
        append(row);
    mPresets.emplace_back();
}

void tcPresetList::append(const tcTexts& acTexts)
{
    mTexts.push_back(acTexts);
    mPresets.push_back({mTexts.back().label.constData(), mTexts.back().script.constData()});
}
