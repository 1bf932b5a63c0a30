#include "stripchart/logic/tcCurveColors.h"

#include <array>

namespace
{

constexpr std::array<Qt::GlobalColor, tcCurveColors::cCount> cColors{{
    Qt::green,
    Qt::cyan,
    Qt::red,
    Qt::yellow,
    Qt::lightGray,
    Qt::darkGreen,
    Qt::blue,
    Qt::darkRed,
    Qt::darkYellow,
    Qt::white,
    Qt::magenta,
    Qt::darkBlue,
    Qt::darkMagenta,
    Qt::gray,
    Qt::darkCyan,
}};

} // namespace

Qt::GlobalColor tcCurveColors::at(int anIndex)
{
    const int rest = anIndex % cCount;
    return cColors[static_cast<std::size_t>(rest < 0 ? rest + cCount : rest)];
}
