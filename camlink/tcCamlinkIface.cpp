#include "camlink/tcCamlinkIface.h"

namespace
{

/// Presets travel in combo box items; registered once, before the first panel exists.
int presetTypeId()
{
    static const int id
        = qRegisterMetaType<tcCamlinkIface::Preset*>("tcCamlinkIface::Preset *");
    return id;
}

} // namespace

tcCamlinkIface::tcCamlinkIface(QWidget* apParent) : QWidget(apParent)
{
    presetTypeId();
}

void tcCamlinkIface::loadSettings(QSettings*) { }

void tcCamlinkIface::saveSettings(QSettings*) { }
