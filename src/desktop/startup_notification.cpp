#include "desktop/startup_notification.h"

#include <QGuiApplication>
#include <QtGui/qguiapplication_platform.h>

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace vexa {

namespace {

xcb_atom_t atomNamed(xcb_connection_t* x, const QByteArray& name) {
    const auto length = static_cast<std::uint16_t>(name.size());
    auto* reply =
        xcb_intern_atom_reply(x, xcb_intern_atom(x, false, length, name.constData()), nullptr);
    const auto atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    std::free(reply);
    return atom;
}

/// Sends messages of up to 20 bytes to all listeners at the root window. Their source window tells
/// them apart from those of other clients.
void broadcast(xcb_connection_t* x, const QByteArray& text) {
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 8;
    event.window = xcb_generate_id(x);
    event.type = atomNamed(x, "_NET_STARTUP_INFO_BEGIN");
    xcb_create_window(x, XCB_COPY_FROM_PARENT, event.window, root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    constexpr qsizetype size = sizeof event.data.data8;
    for (qsizetype sent = 0; sent < text.size(); sent += size) {
        const auto part = text.mid(sent, size).leftJustified(size, '\0');
        std::ranges::copy(part, event.data.data8);
        xcb_send_event(x, false, root, XCB_EVENT_MASK_PROPERTY_CHANGE,
                       reinterpret_cast<const char*>(&event));
        event.type = atomNamed(x, "_NET_STARTUP_INFO");
    }
    xcb_destroy_window(x, event.window);
    xcb_flush(x);
}

} // namespace

void endStartupNotification(const QByteArray& startupId) {
    const auto* platform = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!platform || startupId.isEmpty())
        return;
    auto quoted = startupId;
    quoted.replace('\\', "\\\\").replace('"', "\\\"");
    // The terminating zero is part of the message.
    broadcast(platform->connection(), "remove: ID=\"" + quoted + "\"" + '\0');
}

} // namespace vexa
