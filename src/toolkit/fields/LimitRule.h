#pragma once

#include <QString>
#include <QStringView>

namespace tsms {

/// The part of a text that a change put in.
struct Insertion
{
    qsizetype start = 0;
    qsizetype length = 0;

    friend bool operator==(const Insertion&, const Insertion&) = default;
};

/// Finds what was put in from the text before and after a change and from the caret behind it. What cannot be
/// told by the caret is told by the common beginning and end of the two texts.
Insertion FindInsertion(QStringView before, QStringView after, qsizetype caret);

/// A text and where its caret stands, in UTF-16 units.
struct CaretText
{
    QString text;
    qsizetype caret = 0;

    friend bool operator==(const CaretText&, const CaretText&) = default;
};

/// How long a text is, and how much of it fits into a room of that unit.
struct Measure
{
    int (*length)(QStringView text);
    qsizetype (*fitting)(QStringView text, int room);
};

/// Bytes in code page 949, a CR LF counting 1.
extern const Measure BytesMeasure;
/// UTF-16 units, a CR LF counting 2. Neither a surrogate pair nor a CR LF is halved.
extern const Measure CharactersMeasure;

/// The text that stays of a change by a person: of what was put in, the longest beginning that fits goes in,
/// and the caret stands behind it; the rest of the text stays as it was.
CaretText LimitChange(QStringView before, QStringView after, qsizetype caret, const Measure& measure,
                      int limit);

/// What a field makes of the text that is put in.
using TextFilter = CaretText (*)(const CaretText& text);

/// Leaves digits, "-", "." and "/", and the caret behind what it was behind.
CaretText KeepPhoneCharacters(const CaretText& text);

/// Groups the digits of a plain number in threes; the caret keeps its distance from the end.
CaretText GroupThousands(const CaretText& text);

/// What a field holds its text to; a limit of 0 is none.
struct FieldLimits
{
    int characters = 0;
    int bytes = 0;
    TextFilter filter = nullptr;
    bool oneLine = false; ///< what a person puts in ends at its first line break
};

/// The text that stays of a change, with its caret. Of what a person put in, the longest beginning stays that
/// fits; a text that the program set is cut at its end. What a filter makes longer than a limit, whatever is
/// cut of it, is refused: `before` stays.
CaretText Admit(const QString& before, const CaretText& now, const FieldLimits& limits, bool byProgram);

/// How long a text is up to its first line break of any kind.
qsizetype FirstLineLength(QStringView text);

/// The text that stays of one set by the program: the longest beginning that fits.
QString LimitText(QStringView text, const Measure& measure, int limit);

/// The most characters that a control is given at once. No field's own limit comes near it, and a control
/// lays out what it is given before that limit can act: with a million characters it is busy for a minute.
inline constexpr int MostGiven = 10'000;

/// What a control is given of a text from outside.
QString Manageable(QStringView text);

} // namespace tsms
