#pragma once

#include <QString>

#include <functional>

class QObject;
class tcDataSource;

/// Builders of data sources by type name. Filled while the program starts up, before main;
/// never emptied. Not locked: builders are used on the GUI thread.
namespace tcSourceRegistry
{

/// Takes the source's name and its parent, which owns the result; may return null.
using tcBuilder = std::function<tcDataSource*(const QString& acName, QObject* apParent)>;

/// False, with a warning, when the type has a builder already; that one stays.
bool registerBuilder(const QString& acType, const tcBuilder& acBuilder);

/// Null, with a warning, for a type that nobody registered. An empty builder throws
/// std::bad_function_call.
tcDataSource* createSource(const QString& acType, const QString& acName, QObject* apParent);

} // namespace tcSourceRegistry
