#include "bench/import/BareRead.h"

#include "bench/Measure.h"

#include <freexl.h>
#include <iconv.h>

#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace tsms::bench {

namespace {

// A record of the file: [from, size] of its fields.
constexpr std::size_t RecordBytes = 247;
constexpr std::size_t NameAt = 21;
constexpr std::size_t NameBytes = 20;
constexpr std::size_t PhoneAt = 41;
constexpr std::size_t PhoneBytes = 16;

std::string_view WithoutBlanks(std::string_view field)
{
    const std::size_t last = field.find_last_not_of(' ');
    return field.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

/// Texts one behind the other.
class Texts
{
public:
    void Add(std::string_view bytes)
    {
        char16_t units[NameBytes];
        char* from = const_cast<char*>(bytes.data()); // as the interface has it
        std::size_t left = bytes.size();
        auto* to = reinterpret_cast<char*>(units);
        std::size_t room = sizeof units;
        Demand(iconv(toUnicode_, &from, &left, &to, &room) == 0, "bench_import: a bare field is no text");
        units_.append(units, (sizeof units - room) / sizeof *units);
        ends_.push_back(static_cast<std::uint32_t>(units_.size()));
    }
    std::size_t Count() const { return ends_.size(); }

    Texts() = default;
    ~Texts() { iconv_close(toUnicode_); }
    Texts(const Texts&) = delete;
    Texts& operator=(const Texts&) = delete;

private:
    iconv_t toUnicode_ = iconv_open("UTF-16LE", "CP949");
    std::u16string units_;
    std::vector<std::uint32_t> ends_;
};

bool IsMobile(std::string_view number)
{
    return number.starts_with("01") && number.size() > 2 &&
           std::string_view("016789").find(number[2]) != std::string_view::npos;
}

} // namespace

int GoThroughWorkbook(const QByteArray& path)
{
    const void* book = nullptr;
    Demand(freexl_open(path.constData(), &book) == FREEXL_OK && book,
           "bench_import: FreeXL does not open the workbook");
    Demand(freexl_select_active_worksheet(book, 0) == FREEXL_OK, "bench_import: FreeXL has no sheet");
    unsigned int rows = 0;
    unsigned short columns = 0;
    freexl_worksheet_dimensions(book, &rows, &columns);
    int texts = 0;
    for (unsigned int row = 0; row < rows; ++row)
        for (unsigned short column = 0; column < columns; ++column) {
            FreeXL_CellValue value{};
            freexl_get_cell_value(book, row, column, &value);
            texts += value.type == FREEXL_CELL_SST_TEXT ? 1 : 0;
        }
    freexl_close(book);
    return texts;
}

int ReadRecords(const QByteArray& path)
{
    std::ifstream file(path.constData(), std::ios::binary | std::ios::ate);
    std::string bytes(static_cast<std::size_t>(file.tellg()), '\0');
    file.seekg(0);
    Demand(bool(file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))),
           "bench_import: no file to be read");
    const std::string_view all(bytes);
    Texts texts;
    for (std::size_t at = 0; at + RecordBytes <= all.size(); at += RecordBytes) {
        const std::string_view number = WithoutBlanks(all.substr(at + PhoneAt, PhoneBytes));
        if (!IsMobile(number))
            continue;
        texts.Add(WithoutBlanks(all.substr(at + NameAt, NameBytes)));
        texts.Add(number);
    }
    return static_cast<int>(texts.Count() / 2);
}

} // namespace tsms::bench
