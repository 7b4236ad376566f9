#include "CommandLine.h"
#include "LastResort.h"
#include "cli/output/Console.h"

int main(int argc, char** argv) {
    dorvik::modConsole::PrepareStreams();
    dorvik::modLastResort::InstallForTermination();
    return dorvik::modLastResort::Run([&] { return dorvik::RunCommandLine(argc, argv); });
}
