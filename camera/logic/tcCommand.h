#pragma once

#include <QString>

/// Commands as the operator types them and as the camera reads them.
namespace tcCommand
{

/// With the angle brackets that the operator left out; an empty text stays empty.
QString completed(const QString& acText);

} // namespace tcCommand
