#include <QApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cstdio>

namespace {

/// Fails on Qt's warnings, except those about a machine without a screen.
void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message) {
    std::fprintf(stderr, "%s\n", qUtf8Printable(message));
    const bool isOfPlatform = message.startsWith(QLatin1String("This plugin does not support "));
    if (type != QtDebugMsg && type != QtInfoMsg && !isOfPlatform)
        ADD_FAILURE() << "Qt warned: " << message.toStdString();
}

} // namespace

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    // Tests neither read nor write the settings of the person who runs them.
    const QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", config.path().toLocal8Bit());
    qputenv("XDG_RUNTIME_DIR", config.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    qInstallMessageHandler(failOnWarning);
    return RUN_ALL_TESTS();
}
