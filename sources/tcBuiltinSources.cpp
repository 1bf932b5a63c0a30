/// Enters the built-in source types into the registry before main runs. Both stand in this one
/// file, so that their order does not depend on the order in which files are linked. Nobody
/// calls into it, hence an archive would drop it; it is linked as an object.

#include "sources/logic/tcPortEntry.h"
#include "sources/tcOmegaTempMonitor.h"
#include "sources/tcPicoTC08Source.h"
#include "sources/tcSourceRegistry.h"

namespace
{

// The operator's choice is an entry of the port list, of which the port's name is a part.
[[maybe_unused]] const bool cOmegaRegistered = tcSourceRegistry::registerBuilder(
    tcOmegaTempMonitor::registeredName(), [](const QString& acName, QObject* apParent) {
        return new tcOmegaTempMonitor(tcPortEntry::portName(acName), apParent);
    });

[[maybe_unused]] const bool cPicoRegistered = tcSourceRegistry::registerBuilder(
    tcPicoTC08Source::registeredName(), [](const QString& acName, QObject* apParent) {
        return new tcPicoTC08Source(acName, apParent);
    });

} // namespace
