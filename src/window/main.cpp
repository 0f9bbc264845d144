// SPDX-License-Identifier: MIT
#include "window/run_window.h"

int main(int argument_count, char** arguments)
{
    return tallyframe::window::run_window(argument_count, arguments);
}
