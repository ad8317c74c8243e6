#include "addressbook/UserSMSFileRead.h"

#include "addressbook/RecipientRecord.h"
#include "recipients/MobileNumber.h"
#include "recipients/PhoneSet.h"
#include "recipients/RecipientList.h"
#include "runtime/Desktop.h"
#include "runtime/RuntimeError.h"
#include "session/ScreenBusy.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace tsms {

namespace {

constexpr int SpareRows = 20;
constexpr double MostRecords = 500'000;

/// The number of records is no whole one where the last record lacks its end; the number of rows is.
int RowsFor(double records)
{
    return static_cast<int>(std::nearbyint(records + SpareRows));
}

/// Reads the records of a file one after the other, many of them at a time.
class RecordReader
{
public:
    explicit RecordReader(QIODevice& file) : file_(file) {}

    RecipientRecord Next()
    {
        while (end_ - at_ < RecipientRecord::Size)
            ReadOn();
        const QByteArrayView record(part_.data() + at_, RecipientRecord::Size);
        at_ += RecipientRecord::Size;
        return RecipientRecord::Of(record);
    }

private:
    /// The beginning of a record that is not whole yet moves to the front.
    void ReadOn()
    {
        std::copy(part_.begin() + at_, part_.begin() + end_, part_.begin());
        end_ -= std::exchange(at_, 0);
        const qint64 more = file_.read(part_.data() + end_, static_cast<qint64>(part_.size()) - end_);
        if (more <= 0)
            throw RuntimeError(DeviceFault);
        end_ += more;
    }

    QIODevice& file_;
    std::vector<char> part_ = std::vector<char>(std::size_t{256} * RecipientRecord::Size);
    qint64 at_ = 0;  // of the next record in the part
    qint64 end_ = 0; // of what was read into it
};

/// The numbers on view among so many rows, which are all that hold one, with room for those of all rows.
PhoneSet NumbersOnView(const RecipientList& list, int rows)
{
    PhoneSet numbers;
    numbers.Reserve(list.Rows());
    for (int row = 1; row <= rows; ++row) {
        const QString phone = list.Phone(row);
        if (!phone.isEmpty() && !list.IsRemoved(row))
            numbers.Insert(phone);
    }
    return numbers;
}

/// Lists the number of a row in place of the one that the row had. False, and nothing is changed, when it is
/// listed already. A removed row lists nothing.
bool ReplaceNumber(PhoneSet& listed, const RecipientList& list, int row, const QString& phone)
{
    if (list.IsRemoved(row))
        return !listed.Contains(phone);
    if (!listed.InsertNew(phone))
        return false;
    const QString former = list.Phone(row);
    if (!former.isEmpty())
        listed.Remove(former);
    return true;
}

} // namespace

bool ReadRecipientFile(const QString& applicationPath, RecipientList& list, Session& session,
                       Desktop& desktop)
{
    const auto leave = [&](bool result) {
        SetScreenBusy(session, desktop, false);
        return result;
    };
    return WithHandler(
        [&] {
            const QString path = applicationPath + QStringLiteral("/SMSData");
            if (!QFileInfo(path).isFile())
                return false;
            session.Busy = false; // meant: cleared, not set
            desktop.SetMousePointer(MousePointer::Hourglass);
            QFile file(path);
            if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
                throw RuntimeError(PathFileAccess);
            list.InOneGo([&] { ReadRecipientRecords(file, list); });
            return leave(true);
        },
        [&] { return leave(false); });
}

void ReadRecipientRecords(QIODevice& file, RecipientList& list)
{
    const double records = static_cast<double>(file.size()) / RecipientRecord::Size;
    if (records > MostRecords)
        throw RuntimeError(Overflow);
    const int before = list.Rows();
    list.Resize(RowsFor(records));
    const int kept = std::min(before, list.Rows());
    PhoneSet listed = NumbersOnView(list, kept);
    const auto takeNumber = [&](int row, const QString& phone) { // a new row has none
        return row > kept ? listed.InsertNew(phone) : ReplaceNumber(listed, list, row, phone);
    };
    RecordReader reader(file);
    int target = 1;
    for (int i = 1; i <= records; ++i) {
        RecipientRecord record = reader.Next();
        if (!HasMobilePrefix(record.phone) || !takeNumber(target, record.phone))
            continue;
        list.WriteRunningNumber(target, QString::number(target));
        list.Write(target, std::move(record.name), std::move(record.phone));
        ++target;
    }
}

} // namespace tsms
