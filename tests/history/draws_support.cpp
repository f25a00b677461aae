#include "history/draws_support.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>

#include <QFile>

#include "history/text_lines.h"
#include "workspace/safe_file.h"
#include "workspace/user_files.h"

using namespace Qt::StringLiterals;

const std::vector<history::Draw>& realDraws() {
    static const std::vector<history::Draw> draws = [] {
        QFile file(QStringLiteral(SSQ_REAL_DATA "/draws.txt"));
        if (!file.open(QIODevice::ReadOnly))
            return std::vector<history::Draw>();
        return history::parseDraws(history::decodeText(file.readAll())).draws;
    }();
    return draws;
}

history::Draw randomDraw(std::mt19937& random, std::int32_t issue) {
    std::vector<int> reds(33);
    std::iota(reds.begin(), reds.end(), 1);
    std::shuffle(reds.begin(), reds.end(), random);
    std::sort(reds.begin(), reds.begin() + 6);
    history::Draw draw{issue};
    std::copy_n(reds.begin(), 6, draw.begin() + 1);
    draw[7] = std::uniform_int_distribution<int>(1, 16)(random);
    return draw;
}

FreshWorkspace::FreshWorkspace() {
    workspace.Username = u"张三"_s;
    workspace::createUserFiles(engine, folder(), workspace.Username);
    reopen();
}

std::filesystem::path FreshWorkspace::folder() const {
    return workspace::toPath(home.path());
}

void FreshWorkspace::reopen() {
    QTemporaryDir noSettings;
    const workspace::Settings settings(workspace::toPath(noSettings.path()));
    workspace = workspace::enterUser(settings, folder(), u"张三"_s);
    const workspace::OpenResult opened = workspace::openWorkspace(engine, workspace);
    if (!opened.opened || opened.repaired)
        throw std::logic_error("a fresh workspace must open without a repair");
}
