#include "desktop/ApplicationService.h"
#include "desktop/application_id.h"
#include "support/SessionBus.h"

#include <QDBusInterface>
#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;
using namespace vexa::test;

namespace {

struct Service : testing::Test {
    const SessionBus bus;
    ApplicationService service{bus.connection(u"running"_s)};
    QSignalSpy activated{&service, &ApplicationService::activated};
    QSignalSpy fileOpened{&service, &ApplicationService::fileOpened};
};

TEST(ApplicationId, GivesThePathOnTheBus) {
    EXPECT_EQ(applicationPath(), u"/io/github/vexaremote/VexaRemote"_s);
}

TEST_F(Service, OnlyOneProgramHasTheName) {
    EXPECT_EQ(service.takeName(), BusName::ours);
    ApplicationService second(bus.connection(u"second"_s));
    EXPECT_EQ(second.takeName(), BusName::taken);
}

TEST_F(Service, WithoutABusThereIsNoName) {
    ApplicationService alone(
        QDBusConnection::connectToBus(u"unix:path=/nonexistent"_s, u"alone"_s));
    EXPECT_EQ(alone.takeName(), BusName::noBus);
}

TEST_F(Service, OthersActivateItAndOpenFiles) {
    service.takeName();
    const auto caller = bus.connection(u"caller"_s);
    const auto call = [&](const char* method, const QVariantList& arguments) {
        auto message = QDBusMessage::createMethodCall(applicationId, applicationPath(),
                                                      u"org.freedesktop.Application"_s,
                                                      QString::fromLatin1(method));
        message.setArguments(arguments);
        QDBusPendingCallWatcher watcher(caller.asyncCall(message));
        QSignalSpy(&watcher, &QDBusPendingCallWatcher::finished).wait();
        return watcher.reply().type() == QDBusMessage::ReplyMessage;
    };
    const QVariantMap tokens{{u"activation-token"_s, u"leave"_s},
                             {u"desktop-startup-id"_s, u"launch"_s}};
    EXPECT_TRUE(call("Activate", {tokens}));
    EXPECT_TRUE(call("Open", {QStringList{u"file:///a%20b"_s, u"file:///c"_s}, tokens}));
    EXPECT_TRUE(call("ActivateAction", {u"x"_s, QVariantList{u"y"_s}, QVariantMap()}));
    EXPECT_TRUE(call("Open", {QStringList{u"https://example.org/a"_s}, QVariantMap()}));
    EXPECT_TRUE(call("Open", {QStringList(), QVariantMap()}));
    // Newer versions of Qt warn about such a call.
    const auto handler = qInstallMessageHandler([](QtMsgType, const auto&, const QString&) {});
    EXPECT_FALSE(call("deleteLater", {}));
    qInstallMessageHandler(handler);
    ASSERT_EQ(activated.size(), 5);
    EXPECT_EQ(activated[0], (QVariantList{QByteArray("leave"), QByteArray("launch")}));
    EXPECT_EQ(activated[2], (QVariantList{QByteArray(), QByteArray()}));
    ASSERT_EQ(fileOpened.size(), 1);
    EXPECT_EQ(fileOpened[0], QVariantList{u"/a b"_s});
}

TEST_F(Service, TokensOfImmoderateLengthAreIgnored) {
    const auto tokens = [](qsizetype length) {
        return QVariantMap{{u"activation-token"_s, QString(length, u't')},
                           {u"desktop-startup-id"_s, QString(length, u'i')}};
    };
    service.Activate(tokens(4096));
    service.Activate(tokens(4097));
    ASSERT_EQ(activated.size(), 2);
    EXPECT_EQ(activated[0], (QVariantList{QByteArray(4096, 't'), QByteArray(4096, 'i')}));
    EXPECT_EQ(activated[1], (QVariantList{QByteArray(), QByteArray()}));
}

TEST_F(Service, PathsOfImmoderateLengthAreIgnored) {
    const QString prefix = u"file:///"_s;
    service.Open({prefix + QString(17'000'000, u'a')}, {});
    EXPECT_TRUE(fileOpened.isEmpty());
    service.Open({prefix + QString(17'000'000, u'a'), prefix + u'b'}, {});
    service.Open({prefix + u"%61"_s.repeated(4094)}, {});
    ASSERT_EQ(fileOpened.size(), 2);
    EXPECT_EQ(fileOpened[0], QVariantList{u"/b"_s});
    EXPECT_EQ(fileOpened[1], QVariantList{u'/' + QString(4094, u'a')});
}

} // namespace
