#include "camlink/tcVexaR70.h"

#include "camlink/logic/tcBasicPresets.h"

#include "ui_VexaR70.h"

tcVexaR70::tcVexaR70(QWidget* apParent)
    : tcBasicPanel({tcBasicPresets::cR70.data(), int(tcBasicPresets::cR70.size())}, apParent)
    , mForm(std::make_unique<Ui::VexaR70>())
{
    mForm->setupUi(this);
    connectForm(this, *mForm);
}

tcVexaR70::~tcVexaR70() = default;

QString tcVexaR70::name() const
{
    return QStringLiteral("Vexa-R70");
}
