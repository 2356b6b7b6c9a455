#pragma once

#include "xdg-activation-v1-server-protocol.h"

#include <QTemporaryDir>

#include <wayland-server.h>

#include <atomic>
#include <string>
#include <thread>

namespace vexa::test {

/// A Wayland compositor without a screen, which programs find through the environment. It offers
/// only activation tokens.
class WaylandCompositor {
public:
    /// token: handed out to programs; if empty, no tokens are offered.
    explicit WaylandCompositor(std::string token = {}) : m_token(std::move(token)) {
        qputenv("XDG_RUNTIME_DIR", m_runtime.path().toLocal8Bit());
        qputenv("WAYLAND_DISPLAY", wl_display_add_socket_auto(m_display));
        if (!m_token.empty())
            wl_global_create(m_display, &xdg_activation_v1_interface, 1, this, bind);
    }
    ~WaylandCompositor() {
        m_ends = true;
        if (m_loop.joinable())
            m_loop.join();
        wl_display_destroy_clients(m_display);
        wl_display_destroy(m_display);
        qunsetenv("WAYLAND_DISPLAY");
        qputenv("XDG_RUNTIME_DIR", m_before);
    }

    /// Starts to answer.
    void run() {
        m_loop = std::thread([this] {
            while (!m_ends) {
                wl_event_loop_dispatch(wl_display_get_event_loop(m_display), 5);
                wl_display_flush_clients(m_display);
            }
        });
    }

private:
    static void bind(wl_client* client, void* compositor, std::uint32_t version, std::uint32_t id) {
        static const struct xdg_activation_v1_interface requests{destroy, makeToken, activate};
        auto* resource =
            wl_resource_create(client, &xdg_activation_v1_interface, static_cast<int>(version), id);
        wl_resource_set_implementation(resource, &requests, compositor, nullptr);
    }
    static void destroy(wl_client*, wl_resource* resource) { wl_resource_destroy(resource); }
    static void makeToken(wl_client* client, wl_resource* activation, std::uint32_t id) {
        static const struct xdg_activation_token_v1_interface requests{
            [](wl_client*, wl_resource*, std::uint32_t, wl_resource*) {},
            [](wl_client*, wl_resource*, const char*) {},
            [](wl_client*, wl_resource*, wl_resource*) {}, handOut, destroy};
        auto* token = wl_resource_create(client, &xdg_activation_token_v1_interface, 1, id);
        wl_resource_set_implementation(token, &requests, wl_resource_get_user_data(activation),
                                       nullptr);
    }
    static void handOut(wl_client*, wl_resource* token) {
        const auto* self = static_cast<WaylandCompositor*>(wl_resource_get_user_data(token));
        xdg_activation_token_v1_send_done(token, self->m_token.c_str());
    }
    static void activate(wl_client*, wl_resource*, const char*, wl_resource*) {}

    const QTemporaryDir m_runtime;
    const QByteArray m_before = qgetenv("XDG_RUNTIME_DIR");
    std::string m_token;
    wl_display* m_display = wl_display_create();
    std::atomic<bool> m_ends = false;
    std::thread m_loop;
};

} // namespace vexa::test
