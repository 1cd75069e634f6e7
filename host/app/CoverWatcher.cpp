#include "host/app/CoverWatcher.h"

namespace host::app {

namespace {

bool gOffered = false;

} // namespace

bool CoverWatcher::isOffered() {
    return gOffered;
}

void CoverWatcher::setOffered(bool offered) {
    gOffered = offered;
}

} // namespace host::app
