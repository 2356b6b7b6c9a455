#include "arguments/option_values.h"
#include "ltc_tool/check_command.h"
#include "ltc_tool/command_line.h"
#include "ltc_tool/interruption.h"
#include "ltc_tool/output.h"
#include "ltc_tool/render_command.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

int run(const vexa::ltc_tool::CommandLine& line) {
    using namespace vexa::ltc_tool;
    switch (line.action) {
    case CommandLine::Action::help:
        std::fputs(qUtf8Printable(helpText()), stdout);
        return status::good;
    case CommandLine::Action::version:
        std::puts("vexa-ltc " VEXA_VERSION);
        return status::good;
    default:
        noteInterruptions();
        return line.action == CommandLine::Action::render ? runRender(line) : runCheck(line);
    }
}

} // namespace

int main(int argc, char* argv[]) {
    using namespace vexa::ltc_tool;
    const QCoreApplication application(argc, argv);
    try {
        return run(readCommandLine(QCoreApplication::arguments().mid(1)));
    } catch (const vexa::Refusal& refusal) {
        complain(refusal.message.toStdString());
        return status::misuse;
    } catch (const Interrupted&) {
        showProgress({});
        return status::interrupted;
    }
}
