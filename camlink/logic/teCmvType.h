#pragma once

#include <QMetaEnum>

/// Image sensors of the full cameras. Enumerable, since settings and presets files call the
/// sensors by these names and the camera list is built from them, in this order.
namespace tcCmv
{
Q_NAMESPACE

enum class teCmvType
{
    Cmv300,
    Cmv2000,
    Cmv2000TEC,
    Cmv4000,
    Cmv8000,
    Cmv12000,
};
Q_ENUM_NS(teCmvType)

} // namespace tcCmv

using tcCmv::teCmvType;
