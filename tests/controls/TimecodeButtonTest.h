#pragma once

#include "controls/VexaTimecodeButton.h"
#include "support/ControllerRig.h"

#include <gtest/gtest.h>

#include <string>

namespace vexa::test {

/// The start time display of a controller, showing 01:00:00:00 outside an entry, in its own window.
struct TimecodeButtonTest : testing::Test {
    TimecodeButtonTest() {
        button.setTag(time_tag::start);
        button.awakeFromNib();
        QObject::connect(&button, &VexaTimecodeButton::timeChanged, &rig.controller,
                         &Vexa_RemoteAppDelegate::timeChanged);
        button.setBcdValue(tc("01:00:00:00"));
        button.show();
    }

    void type(const char* characters) {
        for (const char* c = characters; *c; ++c)
            button.handleKey(QString(QLatin1Char(*c)));
    }
    std::string title() const { return button.title().toStdString(); }
    std::string entry() const { return button.alternateTitle().toStdString(); }
    std::uint64_t committed() const { return rig.controller.startTime(); }

    VexaTimecodeButton button;
    ControllerRig rig{&button};
};

} // namespace vexa::test
