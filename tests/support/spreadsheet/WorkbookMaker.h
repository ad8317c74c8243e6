#pragma once

#include <QByteArray>
#include <QString>

#include <deque>
#include <vector>

namespace tsms::test {

/// Puts a workbook together, record by record, as [MS-XLS] and the public documents on BIFF5 tell. It has no
/// more records than a reader of cells needs.
class WorkbookMaker
{
public:
    enum class Version { Biff5 = 0x0500, Biff8 = 0x0600 };
    enum class Visibility { Shown, Hidden, VeryHidden };
    enum class Kind { Worksheet = 0, Chart = 2, Macros = 6 };

    /// A sheet. Columns and rows are counted from 1, formats are what AddFormat answered.
    class Sheet
    {
    public:
        Sheet(WorkbookMaker& book, QString name, Visibility visibility, Kind kind);

        Sheet& Text(int col, int row, const QString& text); ///< shared in BIFF8, the cell's own in BIFF5
        Sheet& OwnText(int col, int row, const QString& text);
        Sheet& Number(int col, int row, double value, int format = 0);
        Sheet& RK(int col, int row, quint32 rk, int format = 0);
        Sheet& MulRK(int col, int row, const std::vector<quint32>& rks, int format = 0);
        Sheet& Truth(int col, int row, bool truth);
        Sheet& Error(int col, int row, int code);
        Sheet& Blank(int col, int row);
        Sheet& NumberFormula(int col, int row, double result, int format = 0);
        Sheet& TextFormula(int col, int row, const QString& result);
        /// 0 text, which comes in a record of its own, 1 truth, 2 error, 3 empty text
        Sheet& OtherFormula(int col, int row, int kind, int value, int format = 0);
        Sheet& Record(int record, const QByteArray& content);

    private:
        friend class WorkbookMaker;
        QByteArray Head(int col, int row, int format);
        void Reach(int col, int row);
        Sheet& Formula(int col, int row, int format, const QByteArray& result);

        WorkbookMaker& book_;
        QString name_;
        Visibility visibility_;
        Kind kind_;
        QByteArray records_;
        int cols_ = 0;
        int rows_ = 0;
    };

    explicit WorkbookMaker(Version version = Version::Biff8);
    WorkbookMaker(const WorkbookMaker&) = delete; // its sheets know it
    WorkbookMaker& operator=(const WorkbookMaker&) = delete;

    Sheet& AddSheet(const QString& name, Visibility visibility = Visibility::Shown,
                    Kind kind = Kind::Worksheet);

    /// A cell format with a code of its own, or with one that spreadsheets know by its number.
    int AddFormat(const QString& code);
    int AddBuiltInFormat(int number, int font = 0);

    /// A font of that character set. Cell formats name it by what this answers.
    int AddFont(int charset);

    /// Adds a shared text and answers its number. `runs` formats of its parts stand behind it.
    quint32 Share(const QString& text, int runs = 0);

    int recordLimit = 8224; ///< the most content bytes of the shared texts' records
    int codePage = 0;       ///< 0: none is told
    QByteArray filePass;    ///< the content of FilePass; empty: the workbook has none
    bool from1904 = false;
    quint32 toldStrings = 0;     ///< their number as it is told; 0: the true one
    bool emptyContinues = false; ///< records without content stand between those of the shared texts

    QByteArray Stream() const;
    QByteArray File() const; ///< in its compound file

    Version version() const { return version_; }
    static QByteArray OneRecord(int record, const QByteArray& content);
    static QByteArray UnicodeText(const QString& text); ///< flags and characters
    static bool IsNarrow(const QString& text);

private:
    struct Shared
    {
        QString text;
        int runs;
    };

    QByteArray Bof(int kind) const;
    QByteArray Globals(const std::vector<quint32>& positions) const;
    QByteArray SharedTexts() const;
    QByteArray Dimensions(const Sheet& sheet) const;
    QByteArray ByteText(const QString& text) const;

    Version version_;
    std::deque<Sheet> sheets_;
    std::vector<Shared> strings_;
    std::vector<std::pair<int, QString>> codes_;
    std::vector<int> charsets_;                        // of the fonts
    std::vector<std::pair<int, int>> formats_{{0, 0}}; // numbers and fonts
};

/// A workbook with three sheets, of which the first has rows of name, number and a third value.
QByteArray WorkbookOf(const std::vector<std::vector<QString>>& rows);

} // namespace tsms::test
