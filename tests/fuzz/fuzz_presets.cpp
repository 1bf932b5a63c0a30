// presets.ini of any content: the list holds the built-in presets, then no more entries than
// the file has, each with both texts.

#include "camera/logic/tcPresetList.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

namespace
{

void must(bool abTrue)
{
    if (!abTrue)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* acData, size_t anSize)
{
    static const QTemporaryDir folder;
    static int number = 0;
    // The settings library remembers files by their names.
    const QString path = folder.filePath(QString::number(++number) + ".ini");
    QFile file(path);
    must(file.open(QIODevice::WriteOnly));
    file.write(reinterpret_cast<const char*>(acData), qint64(anSize));
    file.close();
    for (int type = 0; type <= 6; ++type) {
        const auto cmv = static_cast<teCmvType>(type);
        const tcPresetList::tcFile read = tcPresetList::read(path, cmv);
        must(read.rows.size() <= int(anSize));
        tcPresetList list;
        list.rebuild(cmv, read);
        must(list.count() == list.builtIns() + read.rows.size());
        for (int index = 0; index < list.count(); ++index)
            must(*list.at(index)->label && *list.at(index)->script);
        must(!list.at(list.count())->label);
    }
    QFile::remove(path);
    return 0;
}
