#include "host/settings/ObservationOption.h"

namespace host::settings {

std::string_view toString(ObservationOption option) {
    switch (option) {
    case ObservationOption::None:
        return "None";
    case ObservationOption::Initial:
        return "Initial";
    }
    return "None";
}

} // namespace host::settings
