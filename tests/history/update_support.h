// What the tests of the update share: an application for the event loop, a published history, and the files of a
// workspace before and after.
#pragma once

#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <vector>

#include <QByteArray>
#include <QCoreApplication>

#include "history/draw_record.h"
#include "scratch_folder.h"

/// The event loop of a program without windows.
class PlainApplication {
  public:
    PlainApplication() : m_application(m_count, m_arguments) {}

  private:
    char m_name[5] = "test";
    char* m_arguments[2] = {m_name, nullptr};
    int m_count = 1;
    QCoreApplication m_application;
};

/// Draws of the default rule with issues from `firstIssue` on.
std::vector<history::Draw> madeUpDraws(int count, std::int32_t firstIssue = 2003001, unsigned seed = 5);

/// A folder as the publisher makes it.
struct PublishedFolder {
    explicit PublishedFolder(const std::vector<history::Draw>& draws);
    std::filesystem::path file(const QString& serverPath) const;
    QByteArray bytes(const QString& serverPath) const;

    ScratchFolder folder;
};

QByteArray bytesOf(const std::filesystem::path& file);
void writeBytes(const std::filesystem::path& file, const QByteArray& bytes);

/// Every file below some folders, by its path.
std::map<std::string, QByteArray> filesBelow(const std::vector<std::filesystem::path>& folders);
