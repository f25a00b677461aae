#include "history/update_support.h"

#include <QFile>

#include <gtest/gtest.h>

#include "history/draws_support.h"
#include "history/update_publish.h"
#include "workspace/safe_file.h"

std::vector<history::Draw> madeUpDraws(int count, std::int32_t firstIssue, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<history::Draw> draws;
    for (int draw = 0; draw < count; ++draw)
        draws.push_back(randomDraw(random, firstIssue + draw));
    return draws;
}

PublishedFolder::PublishedFolder(const std::vector<history::Draw>& draws) {
    history::publishHistory(draws, folder.path());
}

std::filesystem::path PublishedFolder::file(const QString& serverPath) const {
    return folder.path() / workspace::toPath(serverPath.sliced(1));
}

QByteArray PublishedFolder::bytes(const QString& serverPath) const {
    return bytesOf(file(serverPath));
}

QByteArray bytesOf(const std::filesystem::path& file) {
    QFile in(workspace::toQString(file));
    EXPECT_TRUE(in.open(QIODevice::ReadOnly)) << file;
    return in.readAll();
}

void writeBytes(const std::filesystem::path& file, const QByteArray& bytes) {
    ASSERT_TRUE(workspace::writeWholeFile(file, bytes)) << file;
}

std::map<std::string, QByteArray> filesBelow(const std::vector<std::filesystem::path>& folders) {
    std::map<std::string, QByteArray> files;
    for (const std::filesystem::path& folder : folders)
        if (std::filesystem::exists(folder))
            for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
                if (entry.is_regular_file())
                    files[entry.path().string()] = bytesOf(entry.path());
    return files;
}
