#include "history/text_pieces.h"

#include <QBuffer>
#include <QFile>
#include <QStringDecoder>

#include "workspace/failure.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace history {

namespace {

constexpr qint64 kPieceBytes = 64 * 1024;

/// \param take  gets the bytes from the start; false ends
template <class Take> void eachPiece(QIODevice& in, Take take) {
    in.seek(0);
    for (QByteArray bytes = in.read(kPieceBytes); !bytes.isEmpty(); bytes = in.read(kPieceBytes))
        if (!take(bytes))
            return;
}

bool isUtf8(QIODevice& in) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    eachPiece(in, [&](const QByteArray& bytes) {
        const QString checked = utf8(bytes);
        return !utf8.hasError();
    });
    // A character that the end of the file cuts off shows as an error once something follows it.
    const QString end = utf8(QByteArray("\n"));
    return !utf8.hasError();
}

QStringDecoder decoderOf(QIODevice& in) {
    in.seek(0);
    const QByteArray mark = in.peek(2);
    if (mark == "\xFF\xFE" || mark == "\xFE\xFF")
        return QStringDecoder(QStringDecoder::Utf16);
    QStringDecoder legacy("GB18030");
    return isUtf8(in) || !legacy.isValid() ? QStringDecoder(QStringDecoder::Utf8) : std::move(legacy);
}

} // namespace

void decodeInPieces(QIODevice& in, const TakePiece& take) {
    QStringDecoder decoder = decoderOf(in);
    eachPiece(in, [&](const QByteArray& bytes) {
        const QString piece = decoder(bytes);
        return take(piece);
    });
}

void readInPieces(const std::filesystem::path& file, const TakePiece& take) {
    const QString name = workspace::toQString(file);
    std::error_code failed;
    if (!std::filesystem::is_regular_file(file, failed)) // opening a pipe would wait for its other end
        throw workspace::Failure(u"找不到文件，或者它不是普通文件 "_s + name,
                                 QString::fromStdString(failed.message()));
    QFile in(name);
    if (!in.open(QIODevice::ReadOnly))
        throw workspace::Failure(u"不能打开文件 "_s + name, in.errorString());
    decodeInPieces(in, take);
    if (in.error() != QFileDevice::NoError)
        throw workspace::Failure(u"不能读取文件 "_s + name, in.errorString());
}

QString decodeText(const QByteArray& bytes) {
    QBuffer in;
    in.setData(bytes);
    in.open(QIODevice::ReadOnly);
    QString text;
    decodeInPieces(in, [&](QStringView piece) {
        text += piece;
        return true;
    });
    return text;
}

} // namespace history
