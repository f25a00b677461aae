// A text as a value of a statement.
#pragma once

#include <string>

#include <QString>

namespace workspace {

/// The text between double quotes. Statements take it as it stands: one with a quote would end early and could reach
/// other rows than those meant. \throws Failure "名字中有双引号"
std::string quotedText(const QString& text);

} // namespace workspace
