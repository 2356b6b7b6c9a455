#pragma once

#include "controls/VexaPrefsController.h"
#include "support/CleanDefaults.h"
#include "support/ControllerRig.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <gmock/gmock.h>

namespace vexa::test {

inline void PrintTo(const FakeMidiSystem::Sent& sent, std::ostream* out) {
    *out << sent.bytes << " to " << sent.destination;
}

/// Operates the panel while it is shown. The rig has one MIDI destination, "Timecode Box".
struct PreferencesTest : testing::Test {
    /// Shows the panel, and cancels it if it is still open after being operated.
    void show(const std::function<void()>& operate) {
        bool operated = false;
        QTimer::singleShot(0, &window, [&] {
            operated = QTest::qWaitForWindowActive(panel());
            operate();
            if (panel())
                panel()->reject();
        });
        prefs.showPreferences();
        EXPECT_TRUE(operated);
    }
    void showAndConfirm() {
        show([] { press(Qt::Key_Return); });
    }

    static QDialog* panel() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }
    static void press(Qt::Key key) { QTest::keyClick(panel(), key); }

    template<class Widget>
    static Widget& control(const char* name) {
        return *panel()->findChild<Widget*>(QLatin1String(name));
    }
    static QLineEdit& delayField() { return control<QLineEdit>("delayField"); }
    static QSpinBox& delayStepper() { return control<QSpinBox>("delayStepper"); }
    static QComboBox& midiOutPopup() { return control<QComboBox>("midiOutPopup"); }
    static QComboBox& frameRatePopup() { return control<QComboBox>("defaultFrameRatePopup"); }
    static QComboBox& syncTypePopup() { return control<QComboBox>("defaultSyncTypePopup"); }
    static QCheckBox& pauseCheck() { return control<QCheckBox>("pauseForReelChangeCheck"); }

    static QPushButton& button(QDialogButtonBox::StandardButton which) {
        return *control<QDialogButtonBox>("buttons").button(which);
    }

    static void typeDelay(const char* text) {
        delayField().selectAll();
        QTest::keyClicks(&delayField(), QLatin1String(text));
    }

    /// Fires the panel's timer, which reads the destinations again every second.
    static void letASecondPass() {
        auto* const timer = panel()->findChild<QTimer*>({}, Qt::FindDirectChildrenOnly);
        ASSERT_EQ(timer->interval(), 1000);
        QTimerEvent event(timer->timerId());
        QCoreApplication::sendEvent(timer, &event);
    }

    static std::vector<std::string> items(const QComboBox& popup) {
        std::vector<std::string> texts;
        for (int i = 0; i < popup.count(); ++i)
            texts.push_back(popup.itemText(i).toStdString());
        return texts;
    }
    static std::vector<int> markedItems(const QComboBox& popup) {
        std::vector<int> marked;
        for (int i = 0; i < popup.count(); ++i)
            if (popup.itemData(i, Qt::CheckStateRole).toInt() == Qt::Checked)
                marked.push_back(i);
        return marked;
    }

    CleanDefaults clean;
    ControllerRig rig;
    QWidget window;
    VexaPrefsController prefs{window, rig.controller, Vexa_MIDI_Manager::sharedMidiManager()};
};

} // namespace vexa::test
