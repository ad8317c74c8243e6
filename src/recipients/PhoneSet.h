#pragma once

#include <QHash>
#include <QString>
#include <QStringView>

namespace tsms {

/// The form in which two numbers are the same or not: trimmed, then without any "-", "/" and ".".
QString ComparedNumber(QStringView number);

/// The numbers of a list by their compared form, each as often as it was put in. Looking for one costs the
/// same however many there are.
class PhoneSet
{
public:
    void Reserve(int numbers) { digits_.reserve(numbers); }

    bool Contains(QStringView number) const;

    /// Puts a number in, once more where it is in already.
    void Insert(QStringView number) { ++CountOf(number); }

    /// Puts a number in unless it is in already, and says whether it did.
    bool InsertNew(QStringView number);

    /// Takes a number out once, if it is in.
    void Remove(QStringView number);

    void Clear();

private:
    int& CountOf(QStringView number);

    // By the compared form: of digits alone, as nearly all are, or any other.
    QHash<quint64, int> digits_;
    QHash<QString, int> others_;
};

} // namespace tsms
