#pragma once

#include "camlink/logic/tcBasicPresets.h"
#include "camlink/tcVexaR60.h"
#include "camlink/tcVexaR70.h"

#include <QTest>

/// Both basic panels: a test of one is run against each, chosen by the global column "kind".
struct tcPanelUnderTest
{
    const char* name;
    const tcPreset* presets;
    int presetCount;
    tcCamlinkIface* (*make)();

    static const tcPanelUnderTest& of(int anIndex);
    static void addColumn();
};

inline const tcPanelUnderTest& tcPanelUnderTest::of(int anIndex)
{
    static const tcPanelUnderTest panels[] = {
        {"Vexa-R60", tcBasicPresets::cR60.data(), int(tcBasicPresets::cR60.size()),
         []() -> tcCamlinkIface* { return new tcVexaR60; }},
        {"Vexa-R70", tcBasicPresets::cR70.data(), int(tcBasicPresets::cR70.size()),
         []() -> tcCamlinkIface* { return new tcVexaR70; }},
    };
    return panels[anIndex];
}

inline void tcPanelUnderTest::addColumn()
{
    QTest::addColumn<int>("kind");
    for (int index = 0; index < 2; ++index)
        QTest::newRow(of(index).name) << index;
}
