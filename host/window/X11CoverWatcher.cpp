#include "host/window/X11CoverWatcher.h"

#include "host/window/Display.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <memory>

namespace host::window {

namespace {

xcb_connection_t* connection() {
    auto* app = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    auto* x11 = app != nullptr ? app->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 != nullptr ? x11->connection() : nullptr;
}

template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

template <typename T>
Reply<T> own(T* reply) {
    return Reply<T>(reply, &std::free);
}

xcb_atom_t intern(xcb_connection_t* c, const char* name) {
    auto reply = own(xcb_intern_atom_reply(c, xcb_intern_atom(c, 0, std::uint16_t(std::strlen(name)), name), nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

// The 32-bit values of a window's property (atoms, windows or cardinals).
std::vector<std::uint32_t> values(xcb_connection_t* c, xcb_window_t window, xcb_atom_t property) {
    auto reply = own(xcb_get_property_reply(
        c, xcb_get_property(c, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, 4096), nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto* data = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return std::vector<std::uint32_t>(data, data + xcb_get_property_value_length(reply.get()) / 4);
}

} // namespace

struct X11CoverWatcher::Atoms {
    xcb_connection_t* c = nullptr;
    xcb_window_t root = XCB_WINDOW_NONE;
    xcb_atom_t stacking = XCB_ATOM_NONE;
    xcb_atom_t currentDesktop = XCB_ATOM_NONE;
    xcb_atom_t wmState = XCB_ATOM_NONE;
    xcb_atom_t wmDesktop = XCB_ATOM_NONE;
    xcb_atom_t fullscreen = XCB_ATOM_NONE;
    xcb_atom_t maxVert = XCB_ATOM_NONE;
    xcb_atom_t maxHorz = XCB_ATOM_NONE;
    xcb_atom_t hidden = XCB_ATOM_NONE;
};

X11CoverWatcher::X11CoverWatcher(QObject* parent) : CoverWatcher(parent) {
    xcb_connection_t* c = connection();
    if (c == nullptr) {
        return;
    }
    atoms_ = std::make_unique<Atoms>();
    Atoms& a = *atoms_;
    a.c = c;
    a.root = xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
    a.stacking = intern(c, "_NET_CLIENT_LIST_STACKING");
    a.currentDesktop = intern(c, "_NET_CURRENT_DESKTOP");
    a.wmState = intern(c, "_NET_WM_STATE");
    a.wmDesktop = intern(c, "_NET_WM_DESKTOP");
    a.fullscreen = intern(c, "_NET_WM_STATE_FULLSCREEN");
    a.maxVert = intern(c, "_NET_WM_STATE_MAXIMIZED_VERT");
    a.maxHorz = intern(c, "_NET_WM_STATE_MAXIMIZED_HORZ");
    a.hidden = intern(c, "_NET_WM_STATE_HIDDEN");
    // The root's property events, added to whatever the toolkit already selects there.
    auto attributes = own(xcb_get_window_attributes_reply(c, xcb_get_window_attributes(c, a.root), nullptr));
    const std::uint32_t mask = (attributes ? attributes->your_event_mask : 0) | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(c, a.root, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(c);
    QCoreApplication::instance()->installNativeEventFilter(this);
    setOffered(true);
    connect(qApp, &QGuiApplication::screenAdded, this, &X11CoverWatcher::scheduleUpdate);
    connect(qApp, &QGuiApplication::screenRemoved, this, &X11CoverWatcher::scheduleUpdate);
    update();
}

X11CoverWatcher::~X11CoverWatcher() {
    if (atoms_ != nullptr && QCoreApplication::instance() != nullptr) {
        QCoreApplication::instance()->removeNativeEventFilter(this);
    }
}

bool X11CoverWatcher::isCovered(const QUuid& display) const {
    return covered_.contains(display);
}

QSet<QUuid> X11CoverWatcher::coveredMonitors(const std::vector<Client>& clients, std::uint32_t currentWorkspace,
                                             const std::vector<Monitor>& monitors) {
    QSet<QUuid> covered;
    for (const Client& client : clients) {
        const bool onWorkspace = client.workspace == currentWorkspace || client.workspace == 0xFFFFFFFFu;
        const bool covering = client.fullscreen || (client.maximizedVertically && client.maximizedHorizontally);
        if (!client.mapped || client.hidden || !onWorkspace || !covering) {
            continue;
        }
        for (const Monitor& monitor : monitors) {
            if (monitor.area.contains(client.area.center())) {
                covered.insert(monitor.display);
            }
        }
    }
    return covered;
}

bool X11CoverWatcher::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/) {
    if (eventType != "xcb_generic_event_t") {
        return false;
    }
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    switch (event->response_type & 0x7f) {
    case XCB_PROPERTY_NOTIFY: {
        const auto* e = reinterpret_cast<const xcb_property_notify_event_t*>(event);
        const Atoms& a = *atoms_;
        if ((e->window == a.root && (e->atom == a.stacking || e->atom == a.currentDesktop)) ||
            (watched_.contains(e->window) && (e->atom == a.wmState || e->atom == a.wmDesktop))) {
            scheduleUpdate();
        }
        break;
    }
    case XCB_CONFIGURE_NOTIFY:
        if (watched_.contains(reinterpret_cast<const xcb_configure_notify_event_t*>(event)->window)) {
            scheduleUpdate();
        }
        break;
    case XCB_MAP_NOTIFY:
    case XCB_UNMAP_NOTIFY:
        if (watched_.contains(reinterpret_cast<const xcb_unmap_notify_event_t*>(event)->window)) {
            scheduleUpdate();
        }
        break;
    default:
        break;
    }
    return false;
}

void X11CoverWatcher::scheduleUpdate() {
    if (updateQueued_ || atoms_ == nullptr) {
        return;
    }
    updateQueued_ = true;
    QTimer::singleShot(0, this, [this] {
        updateQueued_ = false;
        update();
    });
}

void X11CoverWatcher::update() {
    const Atoms& a = *atoms_;
    QSet<std::uint32_t> ours;
    for (const QWindow* window : QGuiApplication::allWindows()) {
        if (window->handle() != nullptr) {
            ours.insert(std::uint32_t(window->winId()));
        }
    }
    std::vector<Client> clients;
    QSet<std::uint32_t> listed;
    for (const std::uint32_t window : values(a.c, a.root, a.stacking)) {
        // The program's own windows keep the event mask the toolkit gave them.
        if (ours.contains(window)) {
            continue;
        }
        listed.insert(window);
        if (!watched_.contains(window)) {
            const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
            xcb_change_window_attributes(a.c, window, XCB_CW_EVENT_MASK, &mask);
        }
        Client client;
        for (const std::uint32_t state : values(a.c, window, a.wmState)) {
            client.fullscreen |= state == a.fullscreen;
            client.maximizedVertically |= state == a.maxVert;
            client.maximizedHorizontally |= state == a.maxHorz;
            client.hidden |= state == a.hidden;
        }
        const std::vector<std::uint32_t> workspace = values(a.c, window, a.wmDesktop);
        client.workspace = workspace.empty() ? 0xFFFFFFFFu : workspace.front();
        auto attributes =
            own(xcb_get_window_attributes_reply(a.c, xcb_get_window_attributes(a.c, window), nullptr));
        client.mapped = attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
        auto geometry = own(xcb_get_geometry_reply(a.c, xcb_get_geometry(a.c, window), nullptr));
        auto origin = own(
            xcb_translate_coordinates_reply(a.c, xcb_translate_coordinates(a.c, window, a.root, 0, 0), nullptr));
        if (geometry && origin) {
            client.area = QRect(origin->dst_x, origin->dst_y, geometry->width, geometry->height);
        }
        clients.push_back(client);
    }
    watched_ = listed;
    xcb_flush(a.c);

    std::vector<Monitor> monitors;
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (const std::optional<Display> display = Display::of(screen)) {
            const QRect logical = screen->geometry();
            const double dpr = screen->devicePixelRatio();
            monitors.push_back({display->id, QRect(logical.topLeft(), logical.size() * dpr)});
        }
    }
    const std::vector<std::uint32_t> current = values(a.c, a.root, a.currentDesktop);
    QSet<QUuid> covered = coveredMonitors(clients, current.empty() ? 0 : current.front(), monitors);
    if (covered != covered_) {
        covered_ = std::move(covered);
        emit coveredChanged();
    }
}

} // namespace host::window
