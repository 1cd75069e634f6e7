#pragma once

#include <QString>

namespace host::view {

/// Where the program's resources are: the build tree's resources/ when run from the build,
/// <prefix>/share/nivalis when installed, both found from the executable's own place.
class Resources {
public:
    /// The resources directory of this program, or the first candidate when none exists yet.
    static QString directory();

    /// The resources directory for an executable living in `executableDirectory`: the first of
    /// ../share/nivalis, ../resources and resources that exists.
    static QString directoryFor(const QString& executableDirectory);
};

} // namespace host::view
