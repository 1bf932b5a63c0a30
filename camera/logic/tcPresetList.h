#pragma once

#include "camlink/logic/tcPreset.h"
#include "camlink/logic/teCmvType.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <deque>
#include <vector>

/// The presets that a panel offers: those that come with the program, then those of a file,
/// then empty entries that end the list. Owns the texts of all of them.
class tcPresetList
{
public:
    struct tcTexts
    {
        QByteArray label;
        QByteArray script;
    };
    struct tcFile
    {
        QString problem;       ///< why the file could not be read; empty when it could
        int size = 0;          ///< entries that the file announces, as it says
        QVector<tcTexts> rows; ///< those that are there and have both texts
    };

    /// Larger files hold no presets that anybody wrote.
    static constexpr qint64 cMaxFileBytes = 64 * 1024 * 1024;

    tcPresetList();
    tcPresetList(const tcPresetList&) = delete;
    tcPresetList& operator=(const tcPresetList&) = delete;

    /// Entries of the sensor type in an ini file. A file that is not there has none and is no
    /// problem.
    static tcFile read(const QString& acPath, teCmvType aeType);

    /// Every pointer to an earlier preset is void after this.
    void rebuild(teCmvType aeType, const tcFile& acFile);

    /// Ends before the first entry without a label.
    int count() const { return static_cast<int>(mTexts.size()); }
    int builtIns() const { return mBuiltIns; }
    /// Entry of that index, the one that ends the list included.
    tcPreset* at(int anIndex) { return &mPresets.at(static_cast<size_t>(anIndex)); }

private:
    void append(const tcTexts& acTexts);

    std::deque<tcTexts> mTexts; ///< never moves a text that an entry points to
    std::vector<tcPreset> mPresets;
    int mBuiltIns = 0;
};
