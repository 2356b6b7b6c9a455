#pragma once

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vexa::test {

/// A service of one object, as a program on the bus. It notes each call: its method, and what the
/// reader makes of its arguments. Only one method is answered, and not while it is held.
class BusService final : public QDBusVirtualObject {
public:
    using Reader = std::function<std::string(const QDBusMessage& call)>;

    BusService(QDBusConnection bus, const QString& name, const QString& path,
               QString answeredMethod, QVariant answer, Reader reader)
        : m_bus(std::move(bus)),
          m_answeredMethod(std::move(answeredMethod)),
          m_answer(std::move(answer)),
          m_reader(std::move(reader)) {
        EXPECT_TRUE(m_bus.registerVirtualObject(path, this));
        EXPECT_TRUE(m_bus.registerService(name));
    }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection&) override {
        m_calls.push_back(call.member().toStdString() + m_reader(call));
        if (call.member() == m_answeredMethod) {
            m_request = call;
            if (!m_isHeld)
                answer(m_answer);
        }
        return true;
    }

    /// The calls so far, once there are that many.
    const std::vector<std::string>& calls(std::size_t count) {
        while (m_calls.size() < count)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return m_calls;
    }
    void hold() { m_isHeld = true; }
    /// Answers the held call. Later calls are answered at once again.
    void answer(const QVariant& answer) {
        m_bus.send(m_request.createReply(answer));
        m_isHeld = false;
    }

private:
    QDBusConnection m_bus;
    const QString m_answeredMethod;
    const QVariant m_answer;
    const Reader m_reader;
    std::vector<std::string> m_calls;
    QDBusMessage m_request;
    bool m_isHeld = false;
};

} // namespace vexa::test
