#pragma once

#include <QStringList>
#include <QTextStream>

namespace host::settings {

class Settings;

/// `nivalis config ...`: reads and writes settings from a terminal, as another process would.
///
///   nivalis config list              every key as "name=value", " (default)" after unset ones
///   nivalis config get NAME          the value in force
///   nivalis config set NAME VALUE    stores VALUE when the key's ValueRule accepts it
///   nivalis config unset NAME        removes the entry, so that the default applies
///   nivalis config --help            the usage, and every key with the values it accepts
///
/// A running wallpaper sees each change at once through its file watcher.
class ConfigCommand {
public:
    /// Runs the command given by `arguments` (the words after "config") on `settings`. Results go
    /// to `out`, messages to `err`. Returns the exit status: 0 on success, 1 for an unknown key,
    /// an invalid value, a settings file that cannot be read or a value that could not be saved
    /// (the store's message names the file and the reason), 2 for a usage error.
    static int run(const QStringList& arguments, Settings& settings, QTextStream& out, QTextStream& err);

    /// The usage text printed on a usage error.
    static QString usage();

    /// The text of `nivalis config --help`: the usage, what each verb does, and each key of
    /// `settings` with the values it accepts.
    static QString help(const Settings& settings);
};

} // namespace host::settings
