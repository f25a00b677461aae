// Kills the whole program at work in its windows with SIGKILL, opens its files again, and compares them with what the
// windows had shown as done.
//
// SSQ_KILLS sets the number of kills (25), SSQ_SEED repeats the steps and the delays of a run; where in a step a kill
// falls is for the machine to say. Each kill is followed by the next life on the same files.
#include <algorithm>
#include <map>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include "crash/contents.h"
#include "crash/driver_process.h"
#include "crash/kill_fixture.h"

namespace {

using namespace std::chrono_literals;
using crash::Texts;

std::vector<std::string> partsOf(const std::string& line) {
    std::vector<std::string> parts;
    std::istringstream rest(line);
    for (std::string part; std::getline(rest, part, '\t');)
        parts.push_back(part);
    return parts;
}

/// What the files may hold, by what the windows have told. Lines of the driver: see window_user.h.
class Model {
  public:
    using Allowed = std::set<std::string>; ///< one that ends in * allows every text that begins so

    void hear(const std::string& line) {
        std::vector<std::string> parts = partsOf(line);
        const std::string kind = parts.front();
        if (kind == "failed")
            ADD_FAILURE() << line;
        else if (kind == "begin")
            begin(parts);
        else if (kind == "done")
            finish();
        else if (kind == "gone")
            forget(parts[1]);
        else
            for (std::size_t part = 1; part < parts.size(); ++part)
                hearValue(kind, parts[part]);
    }

    /// \param found  complete: a key that is not there is an empty text
    void expect(const Texts& found) const {
        for (const auto& [key, allowed] : m_allowed)
            expectOne(key, found.contains(key) ? found.at(key) : std::string());
    }

    /// Nothing is known of a user who is gone.
    void forget(const std::string& user) {
        std::erase_if(m_allowed, [&](const auto& entry) { return entry.first.ends_with('/' + user); });
    }
    /// The next life begins with this.
    void restart(const Texts& found) {
        m_allowed.clear();
        for (const auto& [key, text] : found)
            m_allowed[key] = {text};
        m_step.clear();
        m_expected.clear();
    }

    /// Whether a kill may have left this user with files that are made or deleted only in part.
    bool mayBeInPieces(const std::string& user) const {
        const auto draws = m_expected.find("draws/" + user);
        return draws != m_expected.end() && draws->second == "*";
    }
    std::set<std::string> users() const {
        std::set<std::string> names;
        for (const auto& [key, allowed] : m_allowed)
            if (key.starts_with("draws/"))
                names.insert(key.substr(key.find('/') + 1));
        return names;
    }
    /// The step that is not over; empty between two steps.
    const std::string& step() const { return m_step; }
    int done() const { return m_done; }

  private:
    static std::pair<std::string, std::string> split(const std::string& part) {
        const std::size_t sign = part.find('=');
        return {part.substr(0, sign), part.substr(sign + 1)};
    }
    static bool fits(const std::string& pattern, const std::string& text) {
        if (pattern.ends_with('*'))
            return text.starts_with(pattern.substr(0, pattern.size() - 1));
        return text == pattern;
    }

    void begin(const std::vector<std::string>& parts) {
        m_step = parts[1];
        for (std::size_t part = 2; part < parts.size(); ++part) {
            const auto [key, text] = split(parts[part]);
            m_expected[key] = text;
            if (!m_allowed.contains(key))
                m_allowed[key] = {std::string()};
            m_allowed[key].insert(text);
        }
    }
    void finish() {
        for (const auto& [key, text] : m_expected)
            m_allowed[key] = {text};
        m_expected.clear();
        m_step.clear();
        ++m_done;
    }
    void hearValue(const std::string& kind, const std::string& part) {
        const auto [key, text] = split(part);
        if (kind == "found" && m_allowed.contains(key))
            expectOne(key, text);
        if (kind == "maybe")
            m_allowed[key].insert(text);
        else
            m_allowed[key] = {text};
    }
    void expectOne(const std::string& key, const std::string& text) const {
        const Allowed& allowed = m_allowed.at(key);
        EXPECT_TRUE(std::ranges::any_of(allowed, [&](const std::string& pattern) { return fits(pattern, text); }))
            << key << " is " << text << ", not one of " << testing::PrintToString(allowed);
    }

    std::map<std::string, Allowed> m_allowed;
    Texts m_expected; ///< by the step that is not over
    std::string m_step;
    int m_done = 0;
};

class KillingWindows : public crash::KillFixture {
  protected:
    KillingWindows() : KillFixture(25) {}

    Model model;

    std::filesystem::path home() const { return folder.path() / "home"; }

    /// Half of the kills come soon after some step has begun, some during the start, the others anywhere.
    void killOnce(const std::string& program) {
        crash::DriverProcess driver({program, folder.path().string(), std::to_string(random())});
        const unsigned kind = random() % 10;
        if (kind == 0) {
            driver.listen(upTo(400ms));
        } else {
            driver.listen(60s, "found");
            driver.listen(upTo(2s));
            if (kind < 6 && driver.listen(60s, "begin"))
                driver.listen(upTo(30ms));
        }
        const bool wasAlive = driver.kill();
        for (const std::string& line : driver.lines())
            model.hear(line);
        EXPECT_TRUE(wasAlive);
    }

    void look() {
        try {
            const crash::FoundFolder found =
                crash::readFolder(home(), folder.path() / "config" / "ssqdesk", model.users());
            crash::checkIntegrity(home());
            for (const std::string& user : found.repaired)
                EXPECT_TRUE(model.mayBeInPieces(user)) << user << " lacked files";
            for (const std::string& user : model.users())
                if (!found.listed.contains(user) && model.mayBeInPieces(user))
                    model.forget(user);
            model.expect(found.contents);
            model.restart(found.contents);
        } catch (const std::exception& failed) {
            ADD_FAILURE() << failed.what();
        }
    }
};

TEST_F(KillingWindows, LosesNothingThatTheyHaveShownAsDone) {
#ifndef SSQ_WINDOW_DRIVER
    GTEST_SKIP() << "built without windows";
#else
    SCOPED_TRACE(seedText());
    std::map<std::string, int> moments;
    for (unsigned kill = 0; kill < kills && !HasFailure(); ++kill) {
        killOnce(SSQ_WINDOW_DRIVER);
        const std::string moment = model.step().empty() ? "between steps" : model.step();
        ++moments[moment];
        SCOPED_TRACE("kill " + std::to_string(kill) + " in " + moment);
        look();
    }
    std::printf("%d steps done; killed in\n", model.done());
    for (const auto& [moment, count] : moments)
        std::printf("%5d  %s\n", count, moment.c_str());
#endif
}

} // namespace
