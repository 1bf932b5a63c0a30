#include "camera/logic/tcCmvNames.h"

namespace tcCmvNames
{

QString displayName(teCmvType aeType)
{
    switch (aeType) {
    case teCmvType::Cmv300:
        return QStringLiteral("Vexa-K10");
    case teCmvType::Cmv2000:
        return QStringLiteral("Vexa-K20");
    case teCmvType::Cmv2000TEC:
        return QStringLiteral("Vexa-K20 (Temp controlled)");
    case teCmvType::Cmv4000:
        return QStringLiteral("Vexa-K30");
    case teCmvType::Cmv8000:
        return QStringLiteral("Vexa-K40");
    case teCmvType::Cmv12000:
        return QStringLiteral("Vexa-K50");
    }
    // As designed: misspelled, and a settings group of this name exists in the field.
    return QStringLiteral("ERROR! unkown CMV Type");
}

QString presetArray(teCmvType aeType)
{
    return QString::fromLatin1(
        QMetaEnum::fromType<teCmvType>().valueToKey(static_cast<int>(aeType)));
}

} // namespace tcCmvNames
