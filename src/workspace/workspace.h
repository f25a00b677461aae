// The workspace that a user has entered: the rule, the paths and the open databases, held until the process ends.
#pragma once

#include <filesystem>
#include <memory>

#include <QString>

#include "sql/database.h"

namespace workspace {

struct Workspace {
    int Bitnum = 33;  ///< highest red number, 28..38
    int BitnumB = 16; ///< highest blue number, 12..18
    QString Username;
    QString UserDbPath;  ///< "\{user}\{user}.mdb", relative to the program's folder
    QString UserDbPathR; ///< "\{user}\{user}R.mdb"; no table of the program lives there

    std::filesystem::path folder; ///< the program's folder
    std::unique_ptr<sql::Database> dbUser;
    std::unique_ptr<sql::Database> dbFilnum;
    std::unique_ptr<sql::Database> dbFilnumR; ///< six-red combinations; open once they were asked for
    std::unique_ptr<sql::Database> dbNumsave;

    /// Before files are moved or replaced.
    void closeAll() {
        dbUser.reset();
        dbFilnum.reset();
        dbFilnumR.reset();
        dbNumsave.reset();
    }
};

} // namespace workspace
