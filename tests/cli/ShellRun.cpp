#include "cli/ShellRun.h"

#include <cstdlib>
#include <sys/wait.h>

namespace dorvik::test {

ProgramResult ShellFixture::Shell(const std::string& command) const {
    WriteBytes(
        "../run.sh",
        "cd '" + Work("").string() + "' || exit 99\nexport XDG_STATE_HOME='" +
            Work("../state").string() +
            "'\nDORVIK='" DORVIK_PROGRAM "'\nRULEBASE='" DORVIK_RULEBASE "'\n" + command + "\n");
    const std::string folder = Work("..").string();
    const int status = std::system(("timeout -k 5 120 bash '" + folder + "/run.sh' > '" + folder +
                                    "/output' 2> '" + folder + "/error' < /dev/null")
                                       .c_str());
    return {
        WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status),
        Bytes("../output"),
        Bytes("../error")};
}

}  // namespace dorvik::test
