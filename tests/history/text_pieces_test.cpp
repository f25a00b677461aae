#include "history/text_pieces.h"

#include <sys/stat.h>

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "workspace/failure.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kPiece = 64 * 1024;

TEST(TextPieces, ACharacterMayLieAcrossTwoPieces) {
    const struct {
        QByteArray bytes;
        QString character;
    } characters[] = {{"\xC3\xA9", u"\u00e9"_s},             // UTF-8 of two bytes,
                      {"\xE6\x9C\x9F", u"期"_s},             // of three,
                      {"\xF0\xA0\x80\x80", u"\U00020000"_s}, // of four;
                      {"\xC6\xDA", u"期"_s},                 // GB18030 of two,
                      {"\x81\x30\x84\x36", u"\u00a5"_s}};    // and of four
    for (const auto& [bytes, character] : characters)
        for (int before = kPiece - 4; before <= kPiece; ++before)
            EXPECT_TRUE(history::decodeText(QByteArray(before, 'x') + bytes + 'y') ==
                        QString(before, u'x') + character + u'y')
                << character.toStdString() << " behind " << before;
}

TEST(TextPieces, OneWrongByteAnywhereMakesAllOfATextLegacy) {
    const QByteArray far(3 * kPiece, 'x');
    EXPECT_TRUE(history::decodeText("\xC6\xDA" + far).startsWith(u"期"_s));
    EXPECT_TRUE(history::decodeText(far + "\xC6\xDA").endsWith(u"期"_s));
    EXPECT_TRUE(history::decodeText("\xE6\x9C\x9F" + far + "\xC6\xDA").endsWith(u"期"_s));
    EXPECT_FALSE(history::decodeText("\xE6\x9C\x9F" + far + "\xC6\xDA").startsWith(u"期"_s));
}

TEST(TextPieces, ATextOfSixteenBitsHasItsMark) {
    QByteArray bytes("\xFE\xFF", 2);
    bytes += QByteArray("\0x", 2).repeated(kPiece) + QByteArray("\x67\x1F", 2);
    EXPECT_TRUE(history::decodeText(bytes) == QString(kPiece, u'x') + u"期"_s);
}

TEST(TextPieces, ReadingEndsWhenNoMoreIsWanted) {
    QTemporaryDir folder;
    QFile file(folder.filePath(u"a.txt"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(5 * kPiece, 'x'));
    file.close();
    int pieces = 0;
    history::readInPieces(workspace::toPath(file.fileName()), [&](QStringView piece) {
        EXPECT_EQ(piece.size(), kPiece);
        return ++pieces < 2;
    });
    EXPECT_EQ(pieces, 2);
}

TEST(TextPieces, AFolderAPipeAndADeviceAreNoTexts) {
    QTemporaryDir folder;
    const QString pipe = folder.filePath(u"pipe.txt"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    for (const QString& file : {folder.path(), pipe, u"/dev/zero"_s, folder.filePath(u"missing.txt"_s)})
        EXPECT_THROW(history::readInPieces(workspace::toPath(file), [](QStringView) { return true; }),
                     workspace::Failure)
            << file.toStdString();
}

} // namespace
