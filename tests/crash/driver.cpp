// The program that gets killed: crash_driver FOLDER SEED [TEXT…]
//
// It opens the workspace in the folder and does operations for ever, or reads the texts of draws in turn, and says so
// on its standard output, each line written at once:
//   ready CONTENTS            the workspace is open
//   begin N OPERATION         the operation starts
//   changed N CONTENTS        the combination table is changed in memory and goes into its file next
//   done N CONTENTS           all of the operation is committed
// CONTENTS are four words: draws, selections, setting, checksum of the combination table.
#include <cstdlib>

#include "crash/say.h"
#include "crash/work.h"

namespace {

using crash::say;

std::string words(const crash::Contents& contents) {
    return contents.draws + " " + contents.selections + " " + contents.setting + " " + contents.table;
}

void workForEver(crash::Work& work, std::mt19937& random) {
    for (int number = 1;; ++number) {
        const std::string name = " " + std::to_string(number) + " ";
        const std::string operation = crash::Work::kOperations[random() % std::size(crash::Work::kOperations)];
        say("begin" + name + operation);
        work.run(operation, random);
        say("changed" + name + words(work.contents()));
        work.store();
        say("done" + name + words(work.contents()));
    }
}

void readForEver(crash::Work& work, unsigned seed, const std::vector<std::filesystem::path>& texts) {
    for (unsigned number = 1;; ++number) {
        const std::filesystem::path& text = texts[(number + seed) % texts.size()];
        const std::string name = " " + std::to_string(number) + " ";
        say("begin" + name + text.filename().string());
        work.readText(text);
        say("done" + name + words(work.contents()));
    }
}

} // namespace

int main(int count, char** arguments) {
    if (count < 3)
        return 2;
    try {
        const auto seed = static_cast<unsigned>(std::strtoul(arguments[2], nullptr, 10));
        const std::vector<std::filesystem::path> texts(arguments + 3, arguments + count);
        std::mt19937 random(seed);
        crash::Work work(arguments[1]);
        say("ready " + words(work.contents()));
        if (texts.empty())
            workForEver(work, random);
        readForEver(work, seed, texts);
    } catch (const std::exception& failed) {
        say(std::string("failed ") + failed.what());
        return 1;
    }
}
