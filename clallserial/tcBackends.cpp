#include "clallserial/tcBackends.h"

#include "clallserial/tcHostPortBackend.h"
#include "clallserial/tcVendorBackend.h"
#include "clallserial/tcVirtualBackend.h"

namespace tcBackends
{

std::vector<std::unique_ptr<tcSerialBackend>> make(const tcSerialConfig& acConfig,
                                                   const std::string& acOwnDirectory)
{
    using teVirtual = tcSerialConfig::teVirtual;
    std::vector<std::unique_ptr<tcSerialBackend>> list;
    bool grabber = false;
    if (acConfig.vendor) {
        auto vendor = std::make_unique<tcVendorBackend>(
            acConfig.vendorPath.empty() ? tcVendorBackend::standardDirectory(acOwnDirectory)
                                        : acConfig.vendorPath);
        grabber = vendor->libraries() > 0;
        list.push_back(std::move(vendor));
    }
    if (!acConfig.hostPaths.empty())
        list.push_back(std::make_unique<tcHostPortBackend>(
            tcHostPortBackend::teList::Named, acConfig.hostPaths, acConfig.timeout));
    if (acConfig.virtualCameras == teVirtual::On
        || (acConfig.virtualCameras == teVirtual::Auto && !grabber))
        list.push_back(std::make_unique<tcVirtualBackend>(acConfig));
    if (acConfig.hostScan)
        list.push_back(std::make_unique<tcHostPortBackend>(
            tcHostPortBackend::teList::Scanned, acConfig.hostPaths, acConfig.timeout));
    return list;
}

} // namespace tcBackends
