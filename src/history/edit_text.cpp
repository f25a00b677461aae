#include "history/edit_text.h"

#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace history {

namespace {

const QString kTitle = u"编辑历史"_s;
const QString kNotice = u"您将修改该用户原来读取历史号码文件的时候所生成的默认历史号码文本，文件名为：“"_s;
const QString kNoticeEnd = u"”修改之后如果需要加载到软件里面请使用“读取历史”功能！"_s;
const QString kNothingYet = u"您目前还没有生成历史号码文本，只有“读取历史”找到您当地的历史开奖号码并读入软件之后"
                            u"才能将该历史号码作为您的默认历史号码！是否读取当地历史号码？"_s;
const QString kFailure = u"编辑出错！"_s;

} // namespace

Editing editHistoryText(const workspace::Workspace& workspace, workspace::Dialogs& dialogs,
                        const std::function<bool(const QString& file)>& start) {
    const std::filesystem::path standard = historyTextFile(workspace);
    std::error_code cannotLook; // then it is not there to be edited
    if (!std::filesystem::exists(standard, cannotLook))
        return dialogs.confirm(kNothingYet, kTitle) ? Editing::Read : Editing::Cancelled;
    const QString file = workspace::toQString(standard);
    dialogs.tell(kNotice + file + kNoticeEnd, kTitle);
    if (start(file))
        return Editing::Started;
    dialogs.tell(kFailure, kTitle);
    return Editing::Failed;
}

} // namespace history
