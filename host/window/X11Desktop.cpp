#include "host/window/X11Desktop.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <vector>

namespace host::window {

namespace {

xcb_connection_t* connection() {
    auto* app = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    if (app == nullptr) {
        return nullptr;
    }
    auto* x11 = app->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->connection() : nullptr;
}

xcb_atom_t atom(xcb_connection_t* c, const char* name) {
    const xcb_intern_atom_cookie_t cookie = xcb_intern_atom(c, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(c, cookie, nullptr);
    if (reply == nullptr) {
        return XCB_ATOM_NONE;
    }
    const xcb_atom_t result = reply->atom;
    std::free(reply);
    return result;
}

xcb_window_t rootOf(xcb_connection_t* c) {
    const xcb_setup_t* setup = xcb_get_setup(c);
    const xcb_screen_iterator_t it = xcb_setup_roots_iterator(setup);
    return it.data != nullptr ? it.data->root : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

void setAtoms(xcb_connection_t* c, xcb_window_t w, const char* property, const std::vector<const char*>& names) {
    std::vector<xcb_atom_t> atoms;
    atoms.reserve(names.size());
    for (const char* name : names) {
        atoms.push_back(atom(c, name));
    }
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, atom(c, property), XCB_ATOM_ATOM, 32,
                        static_cast<std::uint32_t>(atoms.size()), atoms.data());
}

void setCardinal(xcb_connection_t* c, xcb_window_t w, const char* property, std::uint32_t value) {
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, atom(c, property), XCB_ATOM_CARDINAL, 32, 1, &value);
}

std::uint32_t workspaceFor(bool allWorkspaces) {
    return allWorkspaces ? 0xFFFFFFFFu : X11Desktop::currentWorkspace();
}

void sendToRoot(xcb_connection_t* c, xcb_window_t w, const char* type, std::uint32_t d0, std::uint32_t d1,
                std::uint32_t d2) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = w;
    event.type = atom(c, type);
    event.data.data32[0] = d0;
    event.data.data32[1] = d1;
    event.data.data32[2] = d2;
    event.data.data32[3] = 1; // the request comes from an application
    xcb_send_event(c, 0, rootOf(c), XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
}

} // namespace

bool X11Desktop::available() {
    return connection() != nullptr;
}

void X11Desktop::applyBeforeMap(WId window, bool allWorkspaces) {
    xcb_connection_t* c = connection();
    if (c == nullptr || window == 0) {
        return;
    }
    const auto w = static_cast<xcb_window_t>(window);
    setAtoms(c, w, "_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DESKTOP"});
    std::vector<const char*> states{"_NET_WM_STATE_BELOW", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"};
    if (allWorkspaces) {
        states.push_back("_NET_WM_STATE_STICKY");
    }
    setAtoms(c, w, "_NET_WM_STATE", states);
    setCardinal(c, w, "_NET_WM_DESKTOP", workspaceFor(allWorkspaces));
    xcb_flush(c);
}

void X11Desktop::applyInteractiveBeforeMap(WId window, bool inFront, bool allWorkspaces) {
    xcb_connection_t* c = connection();
    if (c == nullptr || window == 0) {
        return;
    }
    const auto w = static_cast<xcb_window_t>(window);
    setAtoms(c, w, "_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_NORMAL"});
    std::vector<const char*> states;
    if (inFront) {
        states.push_back("_NET_WM_STATE_ABOVE");
    }
    if (allWorkspaces) {
        states.push_back("_NET_WM_STATE_STICKY");
    }
    setAtoms(c, w, "_NET_WM_STATE", states);
    setCardinal(c, w, "_NET_WM_DESKTOP", workspaceFor(allWorkspaces));
    xcb_flush(c);
}

void X11Desktop::moveToWorkspaces(WId window, bool allWorkspaces) {
    xcb_connection_t* c = connection();
    if (c == nullptr || window == 0) {
        return;
    }
    const auto w = static_cast<xcb_window_t>(window);
    constexpr std::uint32_t kRemove = 0;
    constexpr std::uint32_t kAdd = 1;
    sendToRoot(c, w, "_NET_WM_DESKTOP", workspaceFor(allWorkspaces), 1, 0);
    sendToRoot(c, w, "_NET_WM_STATE", allWorkspaces ? kAdd : kRemove, atom(c, "_NET_WM_STATE_STICKY"), 0);
    xcb_flush(c);
}

std::uint32_t X11Desktop::currentWorkspace() {
    xcb_connection_t* c = connection();
    if (c == nullptr) {
        return 0;
    }
    const xcb_window_t root = rootOf(c);
    return cardinalOf(root, "_NET_CURRENT_DESKTOP").value_or(0);
}

QStringList X11Desktop::atomsOf(WId window, const char* property) {
    QStringList names;
    xcb_connection_t* c = connection();
    if (c == nullptr || window == 0) {
        return names;
    }
    const xcb_get_property_cookie_t cookie = xcb_get_property(c, 0, static_cast<xcb_window_t>(window),
                                                              atom(c, property), XCB_ATOM_ATOM, 0, 1024);
    xcb_get_property_reply_t* reply = xcb_get_property_reply(c, cookie, nullptr);
    if (reply == nullptr) {
        return names;
    }
    const auto* atoms = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply));
    const int count = xcb_get_property_value_length(reply) / static_cast<int>(sizeof(xcb_atom_t));
    for (int i = 0; i < count; ++i) {
        const xcb_get_atom_name_cookie_t nameCookie = xcb_get_atom_name(c, atoms[i]);
        xcb_get_atom_name_reply_t* nameReply = xcb_get_atom_name_reply(c, nameCookie, nullptr);
        if (nameReply != nullptr) {
            names << QString::fromLatin1(xcb_get_atom_name_name(nameReply), xcb_get_atom_name_name_length(nameReply));
            std::free(nameReply);
        }
    }
    std::free(reply);
    return names;
}

std::optional<std::uint32_t> X11Desktop::cardinalOf(WId window, const char* property) {
    xcb_connection_t* c = connection();
    if (c == nullptr || window == 0) {
        return std::nullopt;
    }
    const xcb_get_property_cookie_t cookie = xcb_get_property(c, 0, static_cast<xcb_window_t>(window),
                                                              atom(c, property), XCB_ATOM_CARDINAL, 0, 1);
    xcb_get_property_reply_t* reply = xcb_get_property_reply(c, cookie, nullptr);
    if (reply == nullptr) {
        return std::nullopt;
    }
    std::optional<std::uint32_t> result;
    if (reply->format == 32 && xcb_get_property_value_length(reply) >= 4) {
        result = *static_cast<const std::uint32_t*>(xcb_get_property_value(reply));
    }
    std::free(reply);
    return result;
}

} // namespace host::window
