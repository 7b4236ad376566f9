#include "cli/CommandLine.h"

int main(int argc, char** argv) {
    return dorvik::RunCommandLine(argc, argv);
}
