// SPDX-License-Identifier: MIT
// analyze_alone FILE.xml: loads the document and analyses its first sequence as the command line does, and
// writes nothing. bench/run holds the window's time to its preview against this.
#include "run/gui_mode.h"
#include "sequence_to_spreadsheet/sequence_to_spreadsheet.h"

#include <cstdlib>
#include <exception>
#include <iostream>

int main(int argument_count, char** arguments)
{
    using namespace tallyframe;
    if (argument_count != 2)
        return EXIT_FAILURE;
    try {
        gui_mode = false;
        no_diagnostics out;
        no_progress display;
        no_alerts alert;
        no_sequence_menu menu;
        const session_services services = {out, display, alert, menu};
        report_session session;
        get_sequences_names(session, std::filesystem::path(arguments[1]), services);
        get_info_from_sequence_or_bins(session, session.menu.at(0).uuid, services);
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
