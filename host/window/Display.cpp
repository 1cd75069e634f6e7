#include "host/window/Display.h"

#include "engine/common/Hash.h"

#include <QGuiApplication>
#include <QScreen>

namespace host::window {

namespace {

// Fixed namespace of the name-based ids, so that the same monitor gets the same id everywhere.
const QUuid kDisplayNamespace(QStringLiteral("9aa889ca-71c2-4e67-af2d-fd82faa05c10"));

} // namespace

std::optional<Display> Display::of(const QScreen* screen) {
    if (screen == nullptr) {
        return std::nullopt;
    }
    return fromIdentity(screen->manufacturer(), screen->model(), screen->serialNumber(), screen->name());
}

std::optional<Display> Display::fromIdentity(const QString& manufacturer, const QString& model,
                                             const QString& serial, const QString& connector) {
    if (manufacturer.isEmpty() && model.isEmpty() && serial.isEmpty() && connector.isEmpty()) {
        return std::nullopt;
    }
    // One field per line; a line can hold no newline of its own, so no two identities collide.
    const QString distinguishing = serial.isEmpty() ? QStringLiteral("connector:") + connector
                                                    : QStringLiteral("serial:") + serial;
    const QString identity = manufacturer + QLatin1Char('\n') + model + QLatin1Char('\n') + distinguishing;
    return Display(QUuid::createUuidV5(kDisplayNamespace, identity.toUtf8()));
}

std::optional<Display> Display::main() {
    return of(QGuiApplication::primaryScreen());
}

std::optional<Display> Display::fromUuidText(const QString& text) {
    const QString trimmed = text.trimmed();
    QUuid uuid(trimmed);
    if (uuid.isNull()) {
        return std::nullopt;
    }
    return Display(uuid);
}

QString Display::uuidText() const {
    return id.toString(QUuid::WithoutBraces).toUpper();
}

std::size_t Display::hash() const {
    std::size_t seed = 0;
    engine::common::hashCombine(seed, qHash(id));
    return seed;
}

std::string Display::toString() const {
    return "Display(id=" + uuidText().toStdString() + ")";
}

} // namespace host::window
