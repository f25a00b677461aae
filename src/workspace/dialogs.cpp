#include "workspace/dialogs.h"

#include "workspace/settings.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

class Unseen final : public Progress {
  public:
    bool advance(double) override { return true; }
};

} // namespace

std::optional<int> Dialogs::askNumber(const QString& prompt, const QString& title, const QString& proposed,
                                      NumberLimits limits) {
    for (;;) {
        const std::optional<QString> answer = askText(prompt, title, proposed);
        if (!answer)
            return std::nullopt;
        try {
            const int number = toNumber(*answer);
            if (number >= limits.least && number <= limits.most)
                return number;
        } catch (const ConversionError&) {
            // told below, as a number outside the limits is
        }
        tell(u"请输入数字"_s, u"输入错误"_s);
    }
}

std::unique_ptr<Progress> Dialogs::progress(const QString&) {
    return std::make_unique<Unseen>();
}

QString Dialogs::chooseNewFile(const QString&, const QString&) {
    return {};
}

} // namespace workspace
