#pragma once

#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output.h>
#include <gsf/gsf-utils.h>

namespace tsms {

/// libgsf and the object system that it stands on, loaded when the first file is written. Linked in, they
/// would make the start of the program longer by a fifth of an empty window's.
struct GsfLibrary
{
    decltype(&gsf_init) Init = nullptr;
    decltype(&gsf_output_get_type) OutputType = nullptr;
    decltype(&gsf_output_write) Write = nullptr;
    decltype(&gsf_output_seek) Seek = nullptr;
    decltype(&gsf_output_close) Close = nullptr;
    decltype(&gsf_outfile_new_child) NewChild = nullptr;
    decltype(&gsf_outfile_msole_new) NewCompoundFile = nullptr;
    decltype(&gsf_outfile_msole_set_class_id) SetClassId = nullptr;
    decltype(&g_type_register_static_simple) RegisterType = nullptr;
    decltype(&g_object_new) NewObject = nullptr;
    decltype(&g_object_unref) Release = nullptr;

    /// Loaded and started once, and never let go. Raises 48 when it is not there.
    static const GsfLibrary& Get();
};

} // namespace tsms
