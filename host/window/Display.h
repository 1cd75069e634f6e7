#pragma once

#include <QString>
#include <QUuid>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

class QScreen;

namespace host::window {

/// The persistent identity of a monitor. Unlike a connector name or a screen index it survives
/// restarts and replugging: it is a name-based UUID of what the monitor says about itself.
class Display {
public:
    /// The identity, a UUID.
    QUuid id;

    /// A display of the given id.
    explicit Display(const QUuid& id = QUuid()) : id(id) {}

    /// The display of a screen, or nothing when the screen tells nothing to tell it apart.
    static std::optional<Display> of(const QScreen* screen);

    /// The display of a monitor described by its EDID fields and the connector it is plugged
    /// into. The EDID manufacturer, model and serial make the identity; without a serial number
    /// the connector name stands in for it, so that two monitors of the same model stay apart.
    /// Nothing when all four are empty.
    static std::optional<Display> fromIdentity(const QString& manufacturer, const QString& model,
                                               const QString& serial, const QString& connector);

    /// The display of the primary screen as it is now; nothing without screens, or when the
    /// primary screen tells nothing to tell it apart.
    static std::optional<Display> main();

    /// Reads the stored text form (a UUID, either case, with or without braces); anything else
    /// is no display.
    static std::optional<Display> fromUuidText(const QString& text);

    /// The stored text form: the canonical UUID text in upper case, without braces.
    QString uuidText() const;

    /// Equality by id.
    bool operator==(const Display&) const = default;
    /// Hash of the id, consistent with equality.
    std::size_t hash() const;
    /// "Display(id=9AA889CA-71C2-4E67-AF2D-FD82FAA05C10)".
    std::string toString() const;
};

} // namespace host::window

template <> struct std::hash<host::window::Display> {
    std::size_t operator()(const host::window::Display& d) const { return d.hash(); }
};
