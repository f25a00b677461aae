#include "sql/chunk.h"

#include <zstd.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <vector>

#include "sql/error.h"
#include "sql/scalar.h"
#include "sql/text_recipe.h"

namespace sql {

static_assert(std::endian::native == std::endian::little, "chunks are written as they lie in memory");

namespace {

// How the rows of a chunk are kept. These bytes are in users' files: never renumber them.
enum class Encoding : char { AllNull = 0, Sequence = 1, Numbers = 2, Bits = 3, EqualBits = 4, Reals = 5, Recipe = 6 };

constexpr std::size_t kMostBytesOfText = kTextLimit * 4; // four bytes a character at most
// Such texts and their lengths.
constexpr std::size_t kMostTextBytes = kTextsPerBlob * (kMostBytesOfText + sizeof(std::uint32_t));

// Level 1: about as fast as memory can be read here, and lottery columns are mostly runs.
constexpr int kLevel = 1;

[[noreturn]] void damaged() {
    throw SqlError(error::kNotADatabase, "数据库文件已损坏");
}

std::string compressed(const void* data, std::size_t size) {
    std::string blob(ZSTD_compressBound(size), '\0');
    const std::size_t length = ZSTD_compress(blob.data(), blob.size(), data, size, kLevel);
    if (ZSTD_isError(length))
        throw SqlError(error::kStorage, std::string("数据不能压缩 ") + ZSTD_getErrorName(length));
    blob.resize(length);
    return blob;
}

/// Expands to exactly `size` bytes.
void expand(std::string_view blob, void* out, std::size_t size) {
    const std::size_t length = ZSTD_decompress(out, size, blob.data(), blob.size());
    if (ZSTD_isError(length) || length != size)
        damaged();
}

void putNumber(std::string& blob, std::uint32_t number) {
    blob.append(reinterpret_cast<const char*>(&number), sizeof number);
}

std::uint32_t takeNumber(std::string_view& blob) {
    std::uint32_t number = 0;
    if (blob.size() < sizeof number)
        damaged();
    std::memcpy(&number, blob.data(), sizeof number);
    blob.remove_prefix(sizeof number);
    return number;
}

void putSection(std::string& blob, const std::string& section) {
    putNumber(blob, static_cast<std::uint32_t>(section.size()));
    blob += section;
}

std::string_view takeSection(std::string_view& blob) {
    const std::uint32_t size = takeNumber(blob);
    if (size > blob.size())
        damaged();
    const std::string_view section = blob.substr(0, size);
    blob.remove_prefix(size);
    return section;
}

std::string bitsBlob(const Bitmap& bits, std::size_t first, std::size_t count) {
    std::vector<std::uint64_t> words(wordsFor(count));
    bits.read(first, count, words.data());
    return compressed(words.data(), words.size() * sizeof(std::uint64_t));
}

std::string encodeBits(const Column& column, std::size_t first, std::size_t count) {
    std::vector<std::uint64_t> words(wordsFor(count));
    column.bits.read(first, count, words.data());
    std::size_t set = 0;
    for (const std::uint64_t word : words)
        set += static_cast<std::size_t>(std::popcount(word));
    if (set == 0 || set == count)
        return {static_cast<char>(Encoding::EqualBits), static_cast<char>(set == 0 ? 0 : 1)};
    return static_cast<char>(Encoding::Bits) + compressed(words.data(), words.size() * sizeof(std::uint64_t));
}

/// Null rows as a section: empty when there is none.
std::string nullSection(const Column& column, std::size_t first, std::size_t count) {
    Bitmap nulls(count);
    bool any = false;
    for (std::size_t at = 0; at < count && !column.nulls.none(); ++at)
        if (column.nulls.get(first + at)) {
            nulls.set(at, true);
            any = true;
        }
    return any ? bitsBlob(nulls, 0, count) : std::string();
}

template <class T> std::string packed(const std::vector<std::int32_t>& numbers) {
    std::vector<T> narrow(numbers.begin(), numbers.end());
    return compressed(narrow.data(), narrow.size() * sizeof(T));
}

std::string encodeNumbers(const Column& column, std::size_t first, std::size_t count) {
    std::vector<std::int32_t> numbers(count);
    column.numbers.read(first, count, numbers.data());
    const std::string nulls = nullSection(column, first, count);
    const std::int64_t step = count > 1 ? std::int64_t{numbers[1]} - numbers[0] : 0;
    const bool even = std::adjacent_find(numbers.begin(), numbers.end(), [step](std::int32_t a, std::int32_t b) {
                          return std::int64_t{b} - a != step;
                      }) == numbers.end();
    std::string blob;
    if (even && step >= INT32_MIN && step <= INT32_MAX) {
        blob += static_cast<char>(Encoding::Sequence);
        putNumber(blob, static_cast<std::uint32_t>(numbers[0]));
        putNumber(blob, static_cast<std::uint32_t>(static_cast<std::int32_t>(step)));
        return blob + nulls;
    }
    const auto [low, high] = std::minmax_element(numbers.begin(), numbers.end());
    const Width width = Numbers::widthFor(*low, *high);
    blob += static_cast<char>(Encoding::Numbers);
    blob += static_cast<char>(width);
    putSection(blob, width == Width::One   ? packed<std::int8_t>(numbers)
                     : width == Width::Two ? packed<std::int16_t>(numbers)
                                           : packed<std::int32_t>(numbers));
    return blob + nulls;
}

std::string encodeReals(const Column& column, std::size_t first, std::size_t count) {
    std::string blob(1, static_cast<char>(Encoding::Reals));
    putSection(blob, compressed(column.reals.data() + first, count * sizeof(double)));
    return blob + nullSection(column, first, count);
}

void decodeNulls(std::string_view section, Column& column, std::size_t size, std::size_t count) {
    column.nulls.append(size, count, false);
    if (section.empty())
        return;
    std::vector<std::uint64_t> words(wordsFor(count));
    expand(section, words.data(), words.size() * sizeof(std::uint64_t));
    const std::vector<std::uint64_t> all(kBatchWords, ~0ULL);
    for (std::size_t first = 0; first < count; first += kBatchLimit) {
        const std::size_t rows = std::min(kBatchLimit, count - first);
        std::vector<std::uint64_t> mask(all);
        if (rows % 64 != 0)
            mask[rows / 64] = lowBits(rows % 64);
        column.nulls.write(size + first, rows, words.data() + first / 64, mask.data(), size + count);
    }
}

template <class T> void decodePacked(std::string_view section, std::size_t count, Column& column) {
    std::vector<T> narrow(count);
    expand(section, narrow.data(), count * sizeof(T));
    const std::vector<std::int32_t> numbers(narrow.begin(), narrow.end());
    column.numbers.append(numbers);
}

void decodeSequence(std::string_view& blob, std::size_t count, Column& column) {
    const auto start = static_cast<std::int32_t>(takeNumber(blob));
    const auto step = static_cast<std::int32_t>(takeNumber(blob));
    const std::int64_t last = start + std::int64_t{step} * static_cast<std::int64_t>(count - 1);
    if (last < INT32_MIN || last > INT32_MAX)
        damaged();
    if (step == 0)
        return column.numbers.appendCopies(count, start);
    std::vector<std::int32_t> numbers(count);
    for (std::size_t at = 0; at < count; ++at)
        numbers[at] = static_cast<std::int32_t>(start + std::int64_t{step} * static_cast<std::int64_t>(at));
    column.numbers.append(numbers);
}

void decodeBits(Encoding encoding, std::string_view blob, Column& column, std::size_t size, std::size_t count) {
    if (encoding == Encoding::EqualBits) {
        if (blob.size() != 1)
            damaged();
        return column.bits.resize(size + count, blob[0] != 0);
    }
    if (encoding != Encoding::Bits)
        damaged();
    std::vector<std::uint64_t> words(wordsFor(count));
    expand(blob, words.data(), words.size() * sizeof(std::uint64_t));
    column.bits.resize(size + count);
    if (size % 64 != 0)
        damaged(); // chunks begin at whole words
    if (count % 64 != 0)
        words.back() &= lowBits(count % 64);
    std::copy(words.begin(), words.end(), column.bits.words().begin() + static_cast<std::ptrdiff_t>(size / 64));
}

/// Rows first.. of a text column must be codes of its dictionary; without one, all of them must be Null.
void checkCodes(const Column& column, std::size_t first, std::size_t count) {
    const std::size_t texts = column.dictionary->size();
    if (column.numbers.low() < 0 ||
        static_cast<std::size_t>(column.numbers.high()) >= std::max<std::size_t>(texts, 1))
        damaged();
    for (std::size_t row = first; texts == 0 && row < first + count; ++row)
        if (!column.nulls.get(row))
            damaged();
}

/// The engine works out the room for results from what a column's type can hold.
void checkNumbers(const Column& column, std::size_t first, std::size_t count) {
    if (column.def.type == ColumnType::Text)
        checkCodes(column, first, count);
    else if (column.def.type == ColumnType::Short &&
             (column.numbers.low() < INT16_MIN || column.numbers.high() > INT16_MAX))
        damaged();
}

void decodeNumbers(Encoding encoding, std::string_view blob, Column& column, std::size_t size, std::size_t count) {
    if (encoding == Encoding::Sequence) {
        decodeSequence(blob, count, column);
    } else if (encoding == Encoding::Numbers && !blob.empty()) {
        const auto width = static_cast<Width>(blob.front());
        blob.remove_prefix(1);
        const std::string_view section = takeSection(blob);
        if (width == Width::One)
            decodePacked<std::int8_t>(section, count, column);
        else if (width == Width::Two)
            decodePacked<std::int16_t>(section, count, column);
        else
            decodePacked<std::int32_t>(section, count, column);
    } else {
        damaged();
    }
    decodeNulls(blob, column, size, count);
    checkNumbers(column, size, count);
}

std::string encodeRecipe(const ColumnTable& table, const TextRecipe& recipe) {
    std::string blob(1, static_cast<char>(Encoding::Recipe));
    for (const TextRecipe::Part& part : recipe.parts) {
        const std::int64_t field = part.column < 0 ? 0 : table.columns[static_cast<std::size_t>(part.column)].id;
        putSection(blob, part.literal);
        putNumber(blob, static_cast<std::uint32_t>(field));
        putNumber(blob, part.digits);
    }
    return blob;
}

void decodeRecipe(std::string_view blob, Column& column, std::size_t size, std::size_t count) {
    TextRecipe recipe;
    std::size_t longest = 0;
    while (!blob.empty()) {
        TextRecipe::Part part;
        part.literal = takeSection(blob);
        part.field = takeNumber(blob);
        const std::uint32_t digits = takeNumber(blob);
        if (digits > 20)
            damaged();
        part.digits = static_cast<std::uint8_t>(digits);
        longest += longestText(part);
        if (longestText(part) == 0 || longest > kTextLimit)
            damaged(); // no statement makes a recipe of texts that a column would have to cut
        recipe.parts.push_back(std::move(part));
    }
    const bool sameAsBefore = size == 0 || (column.recipe && *column.recipe == recipe);
    if (column.def.type != ColumnType::Text || !sameAsBefore)
        damaged();
    column.recipe = std::make_shared<const TextRecipe>(std::move(recipe));
    column.numbers.appendCopies(count, 0);
    column.nulls.append(size, count, false);
}

} // namespace

void resolveRecipes(ColumnTable& table) {
    for (Column& column : table.columns) {
        if (!column.recipe)
            continue;
        TextRecipe recipe = *column.recipe;
        for (TextRecipe::Part& part : recipe.parts) {
            if (part.field == 0)
                continue;
            for (std::size_t place = 0; place < table.columns.size(); ++place)
                if (table.columns[place].id == part.field)
                    part.column = static_cast<int>(place);
            const Column* source = part.column < 0 ? nullptr : &table.columns[static_cast<std::size_t>(part.column)];
            const bool isWhole =
                source && (source->def.type == ColumnType::Integer || source->def.type == ColumnType::Short);
            if (!isWhole || !source->nulls.none())
                damaged();
            part.field = 0;
        }
        column.recipe = std::make_shared<const TextRecipe>(std::move(recipe));
    }
}

std::string encodeChunk(const ColumnTable& table, const Column& column, std::size_t first, std::size_t count) {
    if (column.def.type == ColumnType::Bit)
        return encodeBits(column, first, count);
    if (column.recipe)
        return encodeRecipe(table, *column.recipe);
    if (column.nulls.all())
        return std::string(1, static_cast<char>(Encoding::AllNull));
    return column.def.type == ColumnType::Real ? encodeReals(column, first, count)
                                               : encodeNumbers(column, first, count);
}

void decodeChunk(std::string_view blob, Column& column, std::size_t size, std::size_t count) {
    if (blob.empty())
        damaged();
    const auto encoding = static_cast<Encoding>(blob.front());
    blob.remove_prefix(1);
    if (column.def.type == ColumnType::Bit)
        return decodeBits(encoding, blob, column, size, count);
    if (encoding == Encoding::Recipe)
        return decodeRecipe(blob, column, size, count);
    if (column.recipe)
        damaged(); // a column has a recipe for all rows or for none
    if (encoding == Encoding::AllNull)
        return column.appendDefaults(size, count);
    if (column.def.type != ColumnType::Real)
        return decodeNumbers(encoding, blob, column, size, count);
    if (encoding != Encoding::Reals)
        damaged();
    column.reals.resize(size + count);
    expand(takeSection(blob), column.reals.data() + size, count * sizeof(double));
    if (!std::all_of(column.reals.begin() + static_cast<std::ptrdiff_t>(size), column.reals.end(),
                     [](double number) { return std::isfinite(number); }))
        damaged();
    decodeNulls(blob, column, size, count);
}

std::string encodeTexts(const Dictionary& dictionary, std::size_t first, std::size_t count) {
    std::string plain;
    for (std::size_t code = first; code < first + count; ++code)
        putSection(plain, dictionary.text(static_cast<std::int32_t>(code)));
    std::string blob;
    putNumber(blob, static_cast<std::uint32_t>(plain.size()));
    return blob + compressed(plain.data(), plain.size());
}

void decodeTexts(std::string_view blob, Dictionary& dictionary) {
    const std::uint32_t size = takeNumber(blob);
    if (size > kMostTextBytes || ZSTD_getFrameContentSize(blob.data(), blob.size()) != size)
        damaged();
    std::string plain(size, '\0');
    expand(blob, plain.data(), size);
    std::string_view rest = plain;
    while (!rest.empty()) {
        const std::size_t before = dictionary.size();
        const std::string_view text = takeSection(rest);
        if (text.size() > kMostBytesOfText)
            damaged();
        dictionary.intern(text);
        if (dictionary.size() == before)
            damaged(); // every text stands once, or codes would shift
    }
}

} // namespace sql
