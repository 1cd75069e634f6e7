#pragma once

#include <QString>

#include <optional>

namespace host::settings {

class SettingsStore;
class ValueRule;

/// The type-independent face of a settings key, for code that handles keys by name (the
/// `nivalis config` command).
class SettingsKeyBase {
public:
    virtual ~SettingsKeyBase() = default;

    /// The entry's name in the store.
    virtual const QString& name() const = 0;
    /// Name of the value type: "bool", "integer", "number", "text" or "UUID".
    virtual QString typeName() const = 0;
    /// Whether the store holds an entry for this key (which may still be undecodable).
    virtual bool hasEntry() const = 0;
    /// Canonical text of the value in force (the default when there is no valid entry); empty
    /// for an absent optional.
    virtual QString valueText() const = 0;
    /// Canonical text of the default; empty for an absent optional.
    virtual QString defaultText() const = 0;
    /// The values the key may hold.
    virtual const ValueRule& rule() const = 0;
    /// Decodes `text` as this key's type and, when it is a value the rule accepts, writes it.
    /// Returns false, writing nothing, otherwise.
    virtual bool writeText(const QString& text) const = 0;
    /// Removes the entry, so that reads give the default.
    virtual void remove() const = 0;
};

} // namespace host::settings
