// Draws for the tests of the history: the real ones, made-up ones, and a fresh workspace to keep them in.
#pragma once

#include <filesystem>
#include <memory>
#include <random>
#include <vector>

#include <QTemporaryDir>

#include "history/history.h"
#include "sql/database.h"
#include "workspace/workspace.h"

/// The real draws, oldest first; empty when their file is not there.
const std::vector<history::Draw>& realDraws();

/// Any draw of the default rule, reds ascending.
history::Draw randomDraw(std::mt19937& random, std::int32_t issue);

/// A user 张三 with fresh databases in a temporary folder.
struct FreshWorkspace {
    FreshWorkspace();
    /// Closes the databases and opens them again, as the next start of the program does.
    void reopen();
    std::filesystem::path folder() const;

    QTemporaryDir home;
    sql::Engine engine;
    workspace::Workspace workspace;
};
