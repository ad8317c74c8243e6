#include "spreadsheet/write/GsfLibrary.h"

#include "runtime/LibraryRoutine.h"
#include "runtime/RuntimeError.h"

namespace tsms {

namespace {

bool ResolveAll(QLibrary& files, QLibrary& objects, GsfLibrary& into)
{
    return Resolve(files, "gsf_init", into.Init) && Resolve(files, "gsf_output_get_type", into.OutputType) &&
           Resolve(files, "gsf_output_write", into.Write) && Resolve(files, "gsf_output_seek", into.Seek) &&
           Resolve(files, "gsf_output_close", into.Close) &&
           Resolve(files, "gsf_outfile_new_child", into.NewChild) &&
           Resolve(files, "gsf_outfile_msole_new", into.NewCompoundFile) &&
           Resolve(files, "gsf_outfile_msole_set_class_id", into.SetClassId) &&
           Resolve(objects, "g_type_register_static_simple", into.RegisterType) &&
           Resolve(objects, "g_object_new", into.NewObject) &&
           Resolve(objects, "g_object_unref", into.Release);
}

GsfLibrary Load()
{
    GsfLibrary loaded;
#ifdef Q_OS_WIN
    QLibrary files(QStringLiteral("libgsf-1-114"));
    QLibrary objects(QStringLiteral("libgobject-2.0-0"));
#else
    QLibrary files(QStringLiteral("gsf-1"), 114);
    QLibrary objects(QStringLiteral("gobject-2.0"), 0);
#endif
    if (!files.load() || !objects.load() || !ResolveAll(files, objects, loaded))
        throw RuntimeError(LibraryNotLoaded);
    loaded.Init();
    return loaded;
}

} // namespace

const GsfLibrary& GsfLibrary::Get()
{
    static const GsfLibrary loaded = Load();
    return loaded;
}

} // namespace tsms
