#include "host/window/DisplayCatalogue.h"

#include "host/window/DesktopWindow.h"

#include <QScreen>

namespace host::window {

namespace {

std::function<std::vector<DisplayCatalogue::Entry>()>& source() {
    static std::function<std::vector<DisplayCatalogue::Entry>()> installed;
    return installed;
}

} // namespace

QString DisplayCatalogue::label(const QString& manufacturer, const QString& model, const QString& connector) {
    const QString maker = manufacturer.trimmed();
    const QString trimmedModel = model.trimmed();
    const QString name = connector.trimmed();
    QString product = maker;
    if (!trimmedModel.isEmpty()) {
        product = product.isEmpty() ? trimmedModel : product + QLatin1Char(' ') + trimmedModel;
    }
    if (!product.isEmpty()) {
        return name.isEmpty() ? product : product + QStringLiteral(" (") + name + QLatin1Char(')');
    }
    if (!name.isEmpty()) {
        return name;
    }
    return QStringLiteral("<Unknown name>");
}

std::vector<DisplayCatalogue::Entry> DisplayCatalogue::entries() {
    if (source()) {
        return source()();
    }
    std::vector<Entry> result;
    for (QScreen* screen : DesktopWindow::orderedScreens()) {
        result.push_back({Display::of(screen), label(screen->manufacturer(), screen->model(), screen->name())});
    }
    return result;
}

std::optional<Display> DisplayCatalogue::main() {
    const std::vector<Entry> all = entries();
    return all.empty() ? std::nullopt : all.front().display;
}

void DisplayCatalogue::setSource(std::function<std::vector<Entry>()> newSource) {
    source() = std::move(newSource);
}

} // namespace host::window
