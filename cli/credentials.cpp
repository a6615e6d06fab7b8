#include "cli/credentials.h"

#include "cli/output.h"
#include "cli/terminal.h"
#include "cli/text.h"

#include "pwdHolder.h"

#include <termios.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace {

void fromEnvironment(const char* name, std::wstring& target) {
    const char* const value = std::getenv(name);
    if (target.empty() && value != nullptr)
        target = text::wide(value);
}

// Keys are not shown while this lives.
class hiddenKeys {
public:
    hiddenKeys() : m_known(tcgetattr(STDIN_FILENO, &m_before) == 0) {
        termios hidden = m_before;
        hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        if (m_known)
            tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
    }
    ~hiddenKeys() {
        if (m_known)
            tcsetattr(STDIN_FILENO, TCSAFLUSH, &m_before);
        std::fputc('\n', stderr);
    }
    hiddenKeys(const hiddenKeys&) = delete;
    hiddenKeys& operator=(const hiddenKeys&) = delete;

private:
    termios m_before{};
    bool m_known;
};

std::wstring readLine() {
    std::string line;
    for (int c = std::fgetc(stdin); c != EOF && c != '\n'; c = std::fgetc(stdin))
        line += static_cast<char>(c);
    return text::wide(line);
}

void ask(const std::wstring& question, std::wstring& target, bool hidden) {
    if (!target.empty())
        return;
    std::fprintf(stderr, "%s: ", text::shown(question).c_str());
    std::fflush(stderr);
    if (!hidden) {
        target = readLine();
        return;
    }
    const hiddenKeys noEcho;
    target = readLine();
}

} // namespace

bool completeCredentials(NORLEX_contDescription& description) {
    if (pwdHolder::Instance().fill(description))
        return true;
    fromEnvironment("WELLDB_USER", description.user);
    fromEnvironment("WELLDB_PASSWORD", description.password);
    if (description.isNeedPwd() && terminal::isInput() && terminal::isError()) {
        ask(L"User of " + description.path, description.user, false);
        ask(L"Password of " + description.user, description.password, true);
    }
    if (pwdHolder::Instance().fill(description))
        return true;
    output::say(L"the server that " + description.path
                + L" names needs a user and a password: set WELLDB_USER and WELLDB_PASSWORD, or add"
                  L" lines UID=… and PWD=… to the file");
    return false;
}
