#include "desktop/ApplicationService.h"
#include "desktop/DesktopRequests.h"
#include "document/file_uris.h"
#include "support/CleanDefaults.h"
#include "support/ControllerRig.h"

#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;
using namespace vexa::test;

namespace {

struct DesktopRequest : testing::Test {
    const CleanDefaults defaults;
    const QTemporaryDir folder;
    ControllerRig rig;
    QWidget window;
    ApplicationService service{QDBusConnection(u"none"_s)};
    DesktopRequests requests{window, rig.controller, service};
    const QString file = folder.filePath(u"Reels.vexaB"_s);
    const QStringList uris{fileUri(file)};
    QEventLoop program;
};

TEST_F(DesktopRequest, OpensAFileAndBringsTheWindowBack) {
    window.showMinimized();
    service.Open(uris, {});
    EXPECT_FALSE(window.isMinimized());
    EXPECT_TRUE(rig.controller.url().isNull());
    QObject::connect(&rig.controller, &Vexa_RemoteAppDelegate::stateChanged, &program,
                     &QEventLoop::quit);
    program.exec();
    EXPECT_EQ(rig.controller.url(), file);
}

TEST_F(DesktopRequest, AFolderIsNoList) {
    service.Open({fileUri(folder.path())}, {});
    service.Open(uris, {});
    QObject::connect(&rig.controller, &Vexa_RemoteAppDelegate::stateChanged, &program, [&] {
        if (!rig.controller.url().isNull())
            program.quit();
    });
    program.exec();
    EXPECT_EQ(rig.controller.url(), file);
}

TEST_F(DesktopRequest, AsksWhileStripingAndOpensNothing) {
    rig.controller.addItemToBatchList(1, u"item"_s, {0, 1, 2, 0});
    rig.press(transport::playing);
    rig.alerts.answers = {alertSecondButton};
    rig.alerts.whileShown = [&] { program.quit(); };
    service.Open(uris, {});
    program.exec();
    EXPECT_EQ(rig.alerts.shown.size(), 1u);
    EXPECT_TRUE(rig.controller.url().isNull());
    EXPECT_EQ(rig.controller.transportState(), transport::playing);
}

TEST_F(DesktopRequest, AsksOnceForAllTheFilesThatWait) {
    rig.controller.addItemToBatchList(1, u"item"_s, {0, 1, 2, 0});
    rig.alerts.answers = {alertThirdButton, alertSecondButton};
    rig.alerts.whileShown = [&] { QTimer::singleShot(0, &program, &QEventLoop::quit); };
    for (int i = 0; i < 3; ++i)
        service.Open(uris, {});
    program.exec();
    EXPECT_EQ(rig.alerts.shown.size(), 1u);
    EXPECT_TRUE(rig.controller.url().isNull());

    service.Open(uris, {});
    program.exec();
    EXPECT_EQ(rig.alerts.shown.size(), 2u);
    EXPECT_EQ(rig.controller.url(), file);
}

TEST_F(DesktopRequest, PassesOnTheLeaveToComeToTheFront) {
    service.Activate({{u"activation-token"_s, u"leave"_s}});
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "leave");
    EXPECT_TRUE(window.isVisible());
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

} // namespace
