#include "addressbook/UserSMSFileRead.h"

#include "addressbook/RecipientRecord.h"
#include "addressbook/RecipientSheet.h"
#include "runtime/Desktop.h"
#include "runtime/MobileNumber.h"
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

} // namespace

Boolean ReadRecipientFile(const QString& applicationPath, RecipientSheet& list, Session& session,
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
            ReadRecipientRecords(file, list);
            return leave(Boolean::True);
        },
        [&] { return leave(Boolean::False); });
}

void ReadRecipientRecords(QIODevice& file, RecipientSheet& list)
{
    const double records = static_cast<double>(file.size()) / RecipientRecord::Size;
    if (records > MostRecords)
        throw RuntimeError(Overflow);
    list.SetMaxRows(RowsFor(records));
    ListedNumbers listed(list);
    RecordReader reader(file);
    int target = 1;
    for (int i = 1; i <= records; ++i) {
        const RecipientRecord record = reader.Next();
        if (!HasMobilePrefix(record.phone) || !listed.Take(target, record.phone))
            continue;
        list.Write(target, QString::number(target), record.name, record.phone);
        ++target;
    }
}

} // namespace tsms
