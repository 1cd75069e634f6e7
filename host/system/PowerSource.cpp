#include "host/system/PowerSource.h"

namespace host::system {

std::string_view toString(PowerSource source) {
    switch (source) {
    case PowerSource::internalBattery:
        return "internalBattery";
    case PowerSource::externalUnlimited:
        return "externalUnlimited";
    case PowerSource::externalUPS:
        return "externalUPS";
    }
    return "externalUnlimited";
}

} // namespace host::system
