#include "tools/vellari/Run.h"

#include <Vellari/Vellari.h>

#include <csignal>

int main(int count, char** arguments) {
    // A reader that goes away shows as a failed write, which ends the command in order.
    std::signal(SIGPIPE, SIG_IGN);
    Init_Vellari();
    int const status = VellariTool::Run(count, arguments);
    Deinit_Vellari();
    return status;
}
