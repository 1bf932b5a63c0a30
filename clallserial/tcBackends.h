#pragma once

#include "clallserial/tcSerialBackend.h"
#include "clallserial/tcSerialConfig.h"

/// Which back ends there are, and in which order their ports are listed.
namespace tcBackends
{

/// Makers' libraries, then the ports that the configuration names, then the virtual cameras,
/// then the computer's own ports: an operator without a grabber finds a camera first, not a
/// modem. Makers' libraries are looked for in acOwnDirectory on systems without a registry.
std::vector<std::unique_ptr<tcSerialBackend>> make(const tcSerialConfig& acConfig,
                                                   const std::string& acOwnDirectory);

} // namespace tcBackends
