#include "spreadsheet/write/CompoundFile.h"

#include "runtime/SyncToDisk.h"
#include "spreadsheet/write/GsfLibrary.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>

namespace tsms {

namespace {

/// Whether the last call to the system failed for want of room.
bool NoRoom()
{
#ifdef EDQUOT
    if (errno == EDQUOT)
        return true;
#endif
    return errno == ENOSPC || errno == EFBIG; // EFBIG: more than this user may put into one file
}

long NumberOfOpenFailure(const QString& path)
{
    if (NoRoom())
        return DiskFull;
    return QFileInfo(path).absoluteDir().exists() ? PathFileAccess : PathNotFound;
}

/// Of a write or sync that has just failed.
long NumberOfDeviceFailure()
{
    return NoRoom() ? DiskFull : DeviceFault;
}

} // namespace

/// What libgsf takes for the place to write to. It never tells libgsf of a failure, which would go astray in
/// the tables at the end of a file: from the first one on, everything is swallowed.
struct CompoundFile::Sink
{
    GsfOutput base;
    CompoundFile* owner;

    static Sink* New(CompoundFile* owner)
    {
        const GsfLibrary& gsf = GsfLibrary::Get();
        static const GType type =
            gsf.RegisterType(gsf.OutputType(), "TsmsCompoundFileSink", sizeof(GsfOutputClass),
                             &Sink::InitClass, sizeof(Sink), nullptr, static_cast<GTypeFlags>(0));
        auto* sink = static_cast<Sink*>(gsf.NewObject(type, nullptr));
        sink->owner = owner;
        return sink;
    }

    static void InitClass(void* itsClass, void*)
    {
        auto* output = static_cast<GsfOutputClass*>(itsClass);
        output->Write = [](GsfOutput* self, size_t size, const guint8* bytes) -> gboolean {
            reinterpret_cast<Sink*>(self)->owner->PassOn(reinterpret_cast<const char*>(bytes),
                                                         static_cast<qint64>(size));
            return TRUE;
        };
        output->Seek = [](GsfOutput* self, gsf_off_t offset, GSeekType whence) -> gboolean {
            const gsf_off_t from = whence == G_SEEK_SET   ? 0
                                   : whence == G_SEEK_CUR ? self->cur_offset
                                                          : self->cur_size;
            reinterpret_cast<Sink*>(self)->owner->Move(from + offset);
            return TRUE;
        };
        output->Close = [](GsfOutput*) -> gboolean { return TRUE; };
    }
};

/// What libgsf makes of a file.
struct CompoundFile::Parts
{
    Sink* sink;
    GsfOutfile* root;
    GsfOutput* stream;
};

CompoundFile::CompoundFile(const QString& path, const char* stream, const unsigned char* classId)
    : gsf_(GsfLibrary::Get()), file_(path)
{
    // Unbuffered: what comes is large as a rule, and errno is that of the last write.
    errno = 0;
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw RuntimeError(NumberOfOpenFailure(path));
    parts_ = std::make_unique<Parts>();
    parts_->sink = Sink::New(this);
    parts_->root = gsf_.NewCompoundFile(&parts_->sink->base);
    gsf_.SetClassId(reinterpret_cast<GsfOutfileMSOle*>(parts_->root), classId);
    parts_->stream = gsf_.NewChild(parts_->root, stream, FALSE);
}

CompoundFile::~CompoundFile()
{
    if (!parts_)
        return;
    failure_ = DeviceFault; // the tables that libgsf writes now are for nobody
    Close();
}

void CompoundFile::Write(const char* bytes, qsizetype size)
{
    if (written_ + size > MaxStream)
        throw FileTooLarge();
    gsf_.Write(parts_->stream, static_cast<size_t>(size), reinterpret_cast<const guint8*>(bytes));
    written_ += size;
    RaiseFailure();
}

void CompoundFile::WriteOver(quint32 position, const char* bytes, qsizetype size)
{
    gsf_.Seek(parts_->stream, position, G_SEEK_SET);
    gsf_.Write(parts_->stream, static_cast<size_t>(size), reinterpret_cast<const guint8*>(bytes));
    gsf_.Seek(parts_->stream, 0, G_SEEK_END);
    RaiseFailure();
}

void CompoundFile::Commit()
{
    Close();
    RaiseFailure();
    if (!SyncToDisk(file_))
        throw RuntimeError(NumberOfDeviceFailure());
    if (!file_.commit())
        throw RuntimeError(PathFileAccess);
}

void CompoundFile::Close()
{
    gsf_.Close(parts_->stream);
    gsf_.Close(reinterpret_cast<GsfOutput*>(parts_->root));
    gsf_.Release(parts_->stream);
    gsf_.Release(parts_->root);
    gsf_.Release(parts_->sink);
    parts_.reset();
}

void CompoundFile::PassOn(const char* bytes, qint64 size)
{
    if (failure_ == NoError && file_.write(bytes, size) != size)
        failure_ = NumberOfDeviceFailure();
}

void CompoundFile::Move(qint64 position)
{
    if (failure_ == NoError && !file_.seek(position))
        failure_ = DeviceFault;
}

void CompoundFile::RaiseFailure() const
{
    if (failure_ != NoError)
        throw RuntimeError(failure_);
}

RuntimeError FileTooLarge()
{
    return RuntimeError(Overflow, QStringLiteral("엑셀파일의 크기는 2GB를 넘을 수 없습니다."));
}

} // namespace tsms
