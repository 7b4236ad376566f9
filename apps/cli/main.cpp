#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/LastResort.h"

int main(int argc, char** argv) {
    dorvik::modConsole::PrepareStreams();
    dorvik::modLastResort::InstallForTermination();
    return dorvik::modLastResort::Run([&] { return dorvik::RunCommandLine(argc, argv); });
}
