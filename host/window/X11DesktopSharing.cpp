#include "host/window/X11DesktopSharing.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <xcb/shape.h>
#include <xcb/xcb.h>

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace host::window {

namespace {

struct FreeDeleter {
    void operator()(void* p) const { std::free(p); }
};
template <typename T>
using Reply = std::unique_ptr<T, FreeDeleter>;

xcb_connection_t* connection() {
    auto* app = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    auto* x11 = app != nullptr ? app->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 != nullptr ? x11->connection() : nullptr;
}

xcb_atom_t atom(xcb_connection_t* c, const char* name) {
    Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        c, xcb_intern_atom(c, 0, static_cast<std::uint16_t>(std::strlen(name)), name), nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

xcb_window_t rootOf(xcb_connection_t* c) {
    return xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
}

// The values of a 32-bit property (atoms, windows, cardinals) of a window.
std::vector<std::uint32_t> property32(xcb_connection_t* c, xcb_window_t w, xcb_atom_t property, xcb_atom_t type) {
    Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(c, xcb_get_property(c, 0, w, property, type, 0, 1024), nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto* values = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return std::vector<std::uint32_t>(values, values + xcb_get_property_value_length(reply.get()) / 4);
}

// The window of another process that has the type desktop, or none.
xcb_window_t desktopManagerWindow(xcb_connection_t* c, xcb_window_t own) {
    const xcb_atom_t desktopType = atom(c, "_NET_WM_WINDOW_TYPE_DESKTOP");
    const xcb_atom_t typeProperty = atom(c, "_NET_WM_WINDOW_TYPE");
    const xcb_atom_t pidProperty = atom(c, "_NET_WM_PID");
    const auto ownPid = static_cast<std::uint32_t>(::getpid());
    for (std::uint32_t w : property32(c, rootOf(c), atom(c, "_NET_CLIENT_LIST"), XCB_ATOM_WINDOW)) {
        if (w == own) {
            continue;
        }
        const auto types = property32(c, w, typeProperty, XCB_ATOM_ATOM);
        const auto pid = property32(c, w, pidProperty, XCB_ATOM_CARDINAL);
        if (std::find(types.begin(), types.end(), desktopType) != types.end() && (pid.empty() || pid[0] != ownPid)) {
            return w;
        }
    }
    return XCB_WINDOW_NONE;
}

std::uint8_t shapeEventBase(xcb_connection_t* c) {
    const xcb_query_extension_reply_t* shape = xcb_get_extension_data(c, &xcb_shape_id);
    return shape != nullptr && shape->present ? shape->first_event : 0;
}

} // namespace

void X11DesktopSharing::watch(WId window) {
    xcb_connection_t* c = connection();
    if (c == nullptr || shapeEventBase(c) == 0) {
        return;
    }
    // One filter per window for the life of the application: the wallpaper's window lives as
    // long.
    auto* filter = new X11DesktopSharing(window);
    QCoreApplication::instance()->installNativeEventFilter(filter);
    xcb_shape_select_input(c, static_cast<xcb_window_t>(window), 1);
    const std::uint32_t rootEvents = XCB_EVENT_MASK_PROPERTY_CHANGE;
    // Qt already listens to the root's properties; adding the mask again keeps its other bits.
    Reply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(c, xcb_get_window_attributes(c, rootOf(c)), nullptr));
    const std::uint32_t mask = (attributes ? attributes->your_event_mask : 0) | rootEvents;
    xcb_change_window_attributes(c, rootOf(c), XCB_CW_EVENT_MASK, &mask);
    filter->shareInputShape();
    xcb_flush(c);
}

X11DesktopSharing::X11DesktopSharing(WId window) : window_(window) {}

std::optional<QString> X11DesktopSharing::desktopManager() {
    xcb_connection_t* c = connection();
    if (c == nullptr) {
        return std::nullopt;
    }
    const xcb_window_t manager = desktopManagerWindow(c, XCB_WINDOW_NONE);
    if (manager == XCB_WINDOW_NONE) {
        return std::nullopt;
    }
    Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        c, xcb_get_property(c, 0, manager, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 256), nullptr));
    // WM_CLASS holds the instance name and the class name, each ended by a zero.
    const char* text = reply ? static_cast<const char*>(xcb_get_property_value(reply.get())) : nullptr;
    const int length = reply ? xcb_get_property_value_length(reply.get()) : 0;
    return text != nullptr && length > 0 ? QString::fromLocal8Bit(text, static_cast<qsizetype>(strnlen(text, length)))
                                         : QStringLiteral("a desktop manager");
}

bool X11DesktopSharing::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
    if (eventType != "xcb_generic_event_t") {
        return false;
    }
    xcb_connection_t* c = connection();
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const std::uint8_t type = event->response_type & 0x7F;
    const auto own = static_cast<xcb_window_t>(window_);
    if (type == XCB_REPARENT_NOTIFY && reinterpret_cast<const xcb_reparent_notify_event_t*>(event)->window == own) {
        shareInputShape();
    } else if (type == static_cast<std::uint8_t>(shapeEventBase(c) + XCB_SHAPE_NOTIFY) &&
               reinterpret_cast<const xcb_shape_notify_event_t*>(event)->affected_window == own) {
        shareInputShape();
    } else if (type == XCB_MAP_NOTIFY && reinterpret_cast<const xcb_map_notify_event_t*>(event)->window == own) {
        stayBelowDesktopManager();
    } else if (type == XCB_PROPERTY_NOTIFY) {
        const auto* property = reinterpret_cast<const xcb_property_notify_event_t*>(event);
        if (property->window == rootOf(c) && property->atom == atom(c, "_NET_CLIENT_LIST")) {
            stayBelowDesktopManager();
        }
    }
    return false;
}

void X11DesktopSharing::shareInputShape() const {
    xcb_connection_t* c = connection();
    const auto own = static_cast<xcb_window_t>(window_);
    Reply<xcb_shape_get_rectangles_reply_t> shape(xcb_shape_get_rectangles_reply(
        c, xcb_shape_get_rectangles(c, own, XCB_SHAPE_SK_INPUT), nullptr));
    const bool passesClicks = shape && shape->rectangles_len == 0;
    const xcb_window_t root = rootOf(c);
    xcb_window_t w = own;
    for (;;) {
        Reply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(c, xcb_query_tree(c, w), nullptr));
        if (!tree || tree->parent == root || tree->parent == XCB_WINDOW_NONE) {
            break;
        }
        w = tree->parent;
        if (passesClicks) {
            xcb_shape_rectangles(c, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, w, 0, 0, 0,
                                 nullptr);
        } else {
            xcb_shape_mask(c, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, w, 0, 0, XCB_PIXMAP_NONE);
        }
    }
    xcb_flush(c);
}

void X11DesktopSharing::stayBelowDesktopManager() const {
    xcb_connection_t* c = connection();
    const auto own = static_cast<xcb_window_t>(window_);
    const xcb_window_t manager = desktopManagerWindow(c, own);
    if (manager == XCB_WINDOW_NONE) {
        return;
    }
    // _NET_RESTACK_WINDOW, as a pager would send it: directly below the manager's window.
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = own;
    event.type = atom(c, "_NET_RESTACK_WINDOW");
    event.data.data32[0] = 2;
    event.data.data32[1] = manager;
    event.data.data32[2] = XCB_STACK_MODE_BELOW;
    xcb_send_event(c, 0, rootOf(c), XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(c);
}

} // namespace host::window
