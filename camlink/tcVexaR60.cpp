#include "camlink/tcVexaR60.h"

#include "camlink/logic/tcBasicPresets.h"

#include "ui_VexaR60.h"

tcVexaR60::tcVexaR60(QWidget* apParent)
    : tcBasicPanel({tcBasicPresets::cR60.data(), int(tcBasicPresets::cR60.size())}, apParent)
    , mForm(std::make_unique<Ui::VexaR60>())
{
    mForm->setupUi(this);
    connectForm(this, *mForm);
}

tcVexaR60::~tcVexaR60() = default;

QString tcVexaR60::name() const
{
    return QStringLiteral("Vexa-R60");
}
