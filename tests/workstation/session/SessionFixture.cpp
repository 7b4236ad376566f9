#include "SessionFixture.h"

#include "workstation/session/FileSessionHost.h"

namespace dorvik::test {

namespace {

namespace fs = std::filesystem;

HostFacts Facts(const TemporaryFolder& folder) {
    HostFacts facts;
    facts.LogonName = "tester";
    facts.ProgramFolder = ProgramPath(fs::path(DORVIK_PROGRAM_FOLDER)) + "\\";
    facts.UserDataFolder = folder.Path("state\\");
    facts.TemporaryFolder = folder.Path("temporary\\");
    return facts;
}

constexpr std::string_view kControlRule = R"(<NamingConventions>
    <NamingConvention RuleID="5900" RuleActive="True" CaseSensitive="True" Title="Begin controls with a capital letter"
        Description="" ObjectType="6" PropertyType="0" PropertyName="Name" Condition="" ExclusionList=""
        PrefixActive="False" PrefixAdvice="" BodyActive="True" BodyPattern="^[A-Z]" BodyMinLength="0" BodyMaxLength="0"
        BodyAdvice="" SuffixActive="False" SuffixAdvice="">
      <ViolationDefinition Name="Begin controls with a capital letter" Description="'%Control.Name%' does not."
          SeverityLevel="4" Impact="250" CategoryID="-1" Advice=""/>
    </NamingConvention>
    <NamingConvention RuleID="5901" RuleActive="True" CaseSensitive="True" Title="Begin projects with a P of their own"
        Description="" ObjectType="18" PropertyType="0" PropertyName="Name" Condition="" ExclusionList=""
        PrefixActive="False" PrefixAdvice="" BodyActive="True" BodyPattern="^Pp" BodyMinLength="0" BodyMaxLength="0"
        BodyAdvice="" SuffixActive="False" SuffixAdvice="">
      <ViolationDefinition Name="Begin projects with a P of their own" Description="'%Project.Name%' does not."
          SeverityLevel="5" Impact="0" CategoryID="-1" Advice=""/>
    </NamingConvention>
  </NamingConventions>)";

/// The same rulebase with a rule for the names of controls.
void WriteRulebaseOfControls(const TemporaryFolder& folder) {
    std::string text = folder.Read("Rules.dvk");
    constexpr std::string_view kNone = "<NamingConventions/>";
    text.replace(text.find(kNone), kNone.size(), kControlRule);
    folder.Write("Controls.dvk", text);
}

/// In JSON a backslash is two.
std::string InJson(std::string_view path) {
    std::string text;
    for (const char character : path) {
        text.append(character == '\\' ? 2U : 1U, character);
    }
    return text;
}

void ReplaceAll(std::string& text, std::string_view sought, std::string_view replacement) {
    for (std::size_t at = text.find(sought); at != std::string::npos;
         at = text.find(sought, at + replacement.size())) {
        text.replace(at, sought.size(), replacement);
    }
}

}  // namespace

SessionFolder::SessionFolder()
    : m_before(fs::current_path()),
      m_facts(Facts(m_folder)),
      m_installedClock(m_clock),
      m_installedFacts(m_facts) {
    fs::copy(
        fs::path(DORVIK_SESSIONS_FOLDER) / "projects",
        m_folder.HostPath(),
        fs::copy_options::recursive);
    fs::copy_file(DORVIK_SESSION_RULEBASE, m_folder.HostPath() / "Rules.dvk");
    WriteRulebaseOfControls(m_folder);
    fs::create_directory(m_folder.HostPath() / "temporary");
    fs::current_path(m_folder.HostPath());
}

SessionFolder::~SessionFolder() {
    fs::current_path(m_before);
}

std::string SessionFolder::WithoutPlaces(std::string text) const {
    ReplaceAll(text, InJson(m_folder.Path()), "<work>/");
    ReplaceAll(text, InJson(m_facts.ProgramFolder), "<program>/");
    return text;
}

PlayedSession PlaySession(const SessionFolder& folder, std::string_view script) {
    FileSessionHost host;
    return PlaySession(folder, script, host);
}

PlayedSession
PlaySession(const SessionFolder& folder, std::string_view script, ISessionHost& host) {
    PlayedSession played;
    Session session(host);
    SessionPlayer player(session, [&](const std::string& json) {
        played.Output.push_back(folder.WithoutPlaces(json));
    });
    played.Outcome = player.Play(script);
    return played;
}

}  // namespace dorvik::test
