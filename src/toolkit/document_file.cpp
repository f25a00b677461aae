#include "toolkit/document_file.h"

#include <QBuffer>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentWriter>

#include "output/new_file.h"
#include "workspace/failure.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr qreal kPoints = 6;

/// In memory first: the writer tells nothing of a disk that is full.
QByteArray packed(const QTextDocument& document) {
    QBuffer buffer;
    QTextDocumentWriter writer(&buffer, "odf");
    if (!buffer.open(QIODevice::WriteOnly) || !writer.write(&document))
        throw workspace::Failure(u"文档没有生成"_s, u"QTextDocumentWriter"_s);
    return buffer.data();
}

} // namespace

void writeDocument(const QStringList& lines, const std::filesystem::path& file) {
    output::NewFile made(file); // a folder that takes none is known before the work
    QTextDocument document;
    QTextCursor cursor(&document);
    QTextCharFormat look;
    look.setFontPointSize(kPoints);
    look.setFontWeight(QFont::Bold);
    cursor.insertText(lines.value(0), look);
    look.setFontWeight(QFont::Normal);
    for (const QString& line : lines.mid(1)) {
        cursor.insertBlock(QTextBlockFormat(), look);
        cursor.insertText(line, look);
    }
    const QByteArray bytes = packed(document);
    QFile out(workspace::toQString(made.path()));
    if (!out.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw workspace::Failure(u"不能写入文件"_s, out.errorString());
    output::writeAll(out, {bytes.data(), static_cast<std::size_t>(bytes.size())});
    out.close();
    made.commit();
}

} // namespace toolkit
