#include "workspace/quoted_text.h"

#include "workspace/failure.h"

using namespace Qt::StringLiterals;

namespace workspace {

std::string quotedText(const QString& text) {
    if (text.contains(u'"'))
        throw Failure(u"名字中有双引号"_s, text);
    return '"' + text.toStdString() + '"';
}

} // namespace workspace
