#include "desktop/attention_token.h"

#include "desktop/application_id.h"
#include "xdg-activation-v1-client-protocol.h"

#include <QElapsedTimer>
#include <QString>

#include <poll.h>

#include <cstring>
#include <memory>

namespace vexa {

namespace {

template<auto destroy>
struct Destroy {
    void operator()(auto* object) const { destroy(object); }
};

using Display = std::unique_ptr<wl_display, Destroy<wl_display_disconnect>>;
using Registry = std::unique_ptr<wl_registry, Destroy<wl_registry_destroy>>;
using Callback = std::unique_ptr<wl_callback, Destroy<wl_callback_destroy>>;
using Activation = std::unique_ptr<xdg_activation_v1, Destroy<xdg_activation_v1_destroy>>;
using Token = std::unique_ptr<xdg_activation_token_v1, Destroy<xdg_activation_token_v1_destroy>>;

/// The compositor's answers so far.
struct Answers {
    Activation activation;
    bool isComplete = false; ///< all globals are known
    QByteArray token;
};

void noteGlobal(void* data, wl_registry* registry, std::uint32_t name, const char* interface,
                std::uint32_t) {
    if (std::strcmp(interface, xdg_activation_v1_interface.name) == 0)
        static_cast<Answers*>(data)->activation.reset(static_cast<xdg_activation_v1*>(
            wl_registry_bind(registry, name, &xdg_activation_v1_interface, 1)));
}
void noteRemoval(void*, wl_registry*, std::uint32_t) {}
void noteEnd(void* data, wl_callback*, std::uint32_t) {
    static_cast<Answers*>(data)->isComplete = true;
}
void noteToken(void* data, xdg_activation_token_v1*, const char* token) {
    static_cast<Answers*>(data)->token = token;
}

constexpr wl_registry_listener registryListener{noteGlobal, noteRemoval};
constexpr wl_callback_listener endListener{noteEnd};
constexpr xdg_activation_token_v1_listener tokenListener{noteToken};

/// Sends and receives until isDone(). Returns false on timeout or a lost connection.
template<class IsDone>
bool exchange(wl_display* display, const IsDone& isDone, const QElapsedTimer& timer,
              std::chrono::milliseconds patience) {
    while (!isDone()) {
        while (wl_display_prepare_read(display) != 0)
            if (wl_display_dispatch_pending(display) < 0)
                return false;
        wl_display_flush(display);
        pollfd ready{wl_display_get_fd(display), POLLIN, 0};
        const auto left = patience.count() - timer.elapsed();
        if (isDone() || left <= 0 || poll(&ready, 1, static_cast<int>(left)) <= 0) {
            wl_display_cancel_read(display);
            return isDone();
        }
        if (wl_display_read_events(display) < 0 || wl_display_dispatch_pending(display) < 0)
            return false;
    }
    return true;
}

} // namespace

QByteArray attentionToken(std::chrono::milliseconds patience) {
    const Display display(wl_display_connect(nullptr));
    if (!display)
        return {};
    QElapsedTimer timer;
    timer.start();
    Answers answers;
    const Registry registry(wl_display_get_registry(display.get()));
    wl_registry_add_listener(registry.get(), &registryListener, &answers);
    const Callback end(wl_display_sync(display.get()));
    wl_callback_add_listener(end.get(), &endListener, &answers);
    const auto isComplete = [&] { return answers.isComplete; };
    if (!exchange(display.get(), isComplete, timer, patience) || !answers.activation)
        return {};
    const Token token(xdg_activation_v1_get_activation_token(answers.activation.get()));
    xdg_activation_token_v1_add_listener(token.get(), &tokenListener, &answers);
    xdg_activation_token_v1_set_app_id(token.get(), applicationId.toUtf8().constData());
    xdg_activation_token_v1_commit(token.get());
    const auto hasToken = [&] { return !answers.token.isEmpty(); };
    exchange(display.get(), hasToken, timer, patience);
    return answers.token;
}

} // namespace vexa
