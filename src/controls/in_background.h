#pragma once

#include <QCoreApplication>
#include <QPointer>
#include <QThreadPool>

#include <memory>
#include <utility>

namespace vexa {

/// Runs work on another thread, then calls done(result) on the main thread unless the context has
/// been destroyed by then.
template<typename Work, typename Done>
void inBackground(QObject& context, Work work, Done done) {
    const QPointer<QObject> guard(&context);
    QThreadPool::globalInstance()->start([guard, work = std::move(work), done = std::move(done)] {
        auto result = std::make_shared<decltype(work())>(work());
        const auto finish = [guard, done, result] {
            if (guard)
                done(std::move(*result));
        };
        QMetaObject::invokeMethod(QCoreApplication::instance(), finish, Qt::QueuedConnection);
    });
}

} // namespace vexa
