// Makes the folder that an update server serves, from a workspace or from a text of draws.
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "history/update_publish.h"

namespace {

constexpr const char* kUsage = "用法: publish-history 用户文件夹 输出文件夹\n"
                               "      publish-history --text 历史号码文本 输出文件夹\n"
                               "\n"
                               "用用户的历史号码(或一个历史号码文本)生成历史更新服务器的文件夹:\n"
                               "  输出文件夹/download/lshm/TXT/中国福利彩票双色球历史开奖号码.Txt\n"
                               "  输出文件夹/download/lshm/中国福利彩票双色球.mdb\n"
                               "  输出文件夹/download/lshm/shuangseqiu.mdb\n"
                               "用任何网页服务器提供该文件夹即可,例如:\n"
                               "  python3 -m http.server --directory 输出文件夹 8000\n";

constexpr int kWrongUse = 2;

int publish(const std::vector<history::Draw>& draws, const std::filesystem::path& folder) {
    history::publishHistory(draws, folder);
    std::printf("已生成%zu期历史号码: %s\n", draws.size(), folder.c_str());
    return 0;
}

} // namespace

int main(int count, char* arguments[]) {
    const std::vector<std::string_view> words(arguments + 1, arguments + count);
    if (words.size() == 1 && (words[0] == "--help" || words[0] == "-h")) {
        std::fputs(kUsage, stdout);
        return 0;
    }
    const bool text = words.size() == 3 && words[0] == "--text";
    if (!text && (words.size() != 2 || words[0].starts_with("--") || words[1].starts_with("--"))) {
        std::fputs(kUsage, stderr);
        return kWrongUse;
    }
    try {
        return text ? publish(history::drawsOfTextFile(words[1]), words[2])
                    : publish(history::drawsOfUserFolder(words[0]), words[1]);
    } catch (const std::exception& failed) {
        std::fprintf(stderr, "publish-history: %s\n", failed.what());
        return 1;
    }
}
