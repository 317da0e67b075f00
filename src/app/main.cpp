#include "ui/command_line.h"
#include "ui/program.h"

#include <iostream>

int main(int argc, char **argv)
{
    // The pairing forms print and end before any window could open.
    if (const auto exitCode = RunCommandLine(argc, argv, std::cout, std::cerr))
        return *exitCode;
    return RunProgram(argc, argv);
}
