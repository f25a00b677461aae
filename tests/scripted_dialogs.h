// The answers of a user to the questions that a case expects, in order, without a display.
//
//     ScriptedDialogs dialogs({confirms(kQuestion), picks(file), tells(kRefused)});
//     readWhole(history, workspace, dialogs);
//
// A call that nobody expects, or with another text, fails the case and gets the harmless answer; a call that never
// comes fails it when the dialogs go out of scope.
#pragma once

#include <deque>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include "workspace/dialogs.h"

struct DialogCall {
    enum Kind { Confirm, Tell, Warn, AskText, ChooseFile } kind;
    QString text;                  ///< what is shown; empty is not compared
    std::optional<QString> answer; ///< nothing: Cancel
};

inline DialogCall confirms(const QString& text, bool pressOk = true) {
    return {DialogCall::Confirm, text, pressOk ? std::optional(QString()) : std::nullopt};
}
inline DialogCall tells(const QString& text) {
    return {DialogCall::Tell, text, {}};
}
inline DialogCall warns(const QString& text) {
    return {DialogCall::Warn, text, {}};
}
inline DialogCall asksText(const QString& prompt, const std::optional<QString>& answer) {
    return {DialogCall::AskText, prompt, answer};
}
inline DialogCall picks(const QString& file) {
    return {DialogCall::ChooseFile, {}, file};
}

class ScriptedDialogs final : public workspace::Dialogs {
  public:
    explicit ScriptedDialogs(const std::vector<DialogCall>& calls) : m_calls(calls.begin(), calls.end()) {}
    ~ScriptedDialogs() override {
        for (const DialogCall& call : m_calls)
            ADD_FAILURE() << "never shown: " << call.text.toStdString();
    }

    std::vector<workspace::Message> shown; ///< questions and messages with titles and details

    bool confirm(const workspace::Message& question, workspace::Risk) override {
        shown.push_back(question);
        return take(DialogCall::Confirm, question.text).has_value();
    }
    void tell(const workspace::Message& message) override {
        shown.push_back(message);
        take(DialogCall::Tell, message.text);
    }
    void warn(const workspace::Message& message) override {
        shown.push_back(message);
        take(DialogCall::Warn, message.text);
    }
    std::optional<QString> askText(const QString& prompt, const QString& title, const QString&) override {
        shown.push_back({prompt, title});
        return take(DialogCall::AskText, prompt);
    }
    QString chooseFile(const QString&, const QString& filter) override {
        return take(DialogCall::ChooseFile, filter).value_or(QString());
    }

  private:
    std::optional<QString> take(DialogCall::Kind kind, const QString& text) {
        if (m_calls.empty() || m_calls.front().kind != kind ||
            (!m_calls.front().text.isEmpty() && m_calls.front().text != text)) {
            ADD_FAILURE() << "not expected: " << text.toStdString();
            return {};
        }
        const std::optional<QString> answer = m_calls.front().answer;
        m_calls.pop_front();
        return answer;
    }

    std::deque<DialogCall> m_calls;
};
