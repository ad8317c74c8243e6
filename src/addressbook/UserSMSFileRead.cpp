#include "addressbook/UserSMSFileRead.h"

#include "addressbook/RecipientRecord.h"
#include "recipients/MobileNumber.h"
#include "recipients/PhoneSet.h"
#include "recipients/RecipientList.h"
#include "runtime/Desktop.h"
#include "runtime/RuntimeError.h"
#include "session/Session.h"

#include <QFile>
#include <QFileInfo>

#include <cmath>

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
        while (left_.size() < RecipientRecord::Size)
            ReadOn();
        const QByteArrayView record = left_.first(RecipientRecord::Size);
        left_ = left_.sliced(RecipientRecord::Size);
        return RecipientRecord::Of(record);
    }

private:
    void ReadOn()
    {
        const QByteArray more = file_.read(qint64{1000} * RecipientRecord::Size);
        if (more.isEmpty())
            throw RuntimeError(DeviceFault);
        part_ = left_.toByteArray() + more;
        left_ = part_;
    }

    QIODevice& file_;
    QByteArray part_;
    QByteArrayView left_; // of the part
};

PhoneSet NumbersOnView(const RecipientList& list)
{
    const int rows = list.Rows();
    PhoneSet numbers;
    numbers.Reserve(rows);
    for (int row = 1; row <= rows; ++row) {
        const QString phone = list.Phone(row);
        if (!phone.isEmpty() && !list.IsRemoved(row))
            numbers.Insert(phone);
    }
    return numbers;
}

/// Whether a number may come to stand in a row: false when it is listed already. When it may, it is listed
/// from now on and the one that stands in the row until then is not. A removed row lists nothing.
bool TakeNumber(PhoneSet& listed, const RecipientList& list, int row, const QString& phone)
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

Boolean ReadRecipientFile(const QString& applicationPath, RecipientList& list, Session& session,
                          Desktop& desktop)
{
    const auto leave = [&](Boolean result) {
        desktop.SetMousePointer(MousePointer::Default);
        session.Busy = Boolean::False;
        return result;
    };
    return WithHandler(
        [&] {
            const QString path = applicationPath + QStringLiteral("/SMSData");
            if (!QFileInfo(path).isFile())
                return Boolean::False;
            session.Busy = Boolean::False; // cleared and not set, as it is meant
            desktop.SetMousePointer(MousePointer::Hourglass);
            QFile file(path);
            if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
                throw RuntimeError(PathFileAccess);
            list.InOneGo([&] { ReadRecipientRecords(file, list); });
            return leave(Boolean::True);
        },
        [&] { return leave(Boolean::False); });
}

void ReadRecipientRecords(QIODevice& file, RecipientList& list)
{
    const double records = static_cast<double>(file.size()) / RecipientRecord::Size;
    if (records > MostRecords)
        throw RuntimeError(Overflow);
    list.Resize(RowsFor(records));
    PhoneSet listed = NumbersOnView(list);
    RecordReader reader(file);
    int target = 1;
    for (int i = 1; i <= records; ++i) {
        const RecipientRecord record = reader.Next();
        if (!HasMobilePrefix(record.phone) || !TakeNumber(listed, list, target, record.phone))
            continue;
        list.WriteRunningNumber(target, QString::number(target));
        list.Write(target, record.name, record.phone);
        ++target;
    }
}

} // namespace tsms
