#pragma once

#include "support/ScriptedDesktop.h"
#include "support/Words.h"

namespace tsms::test {

/// The box of a query or statement that failed with `words`.
inline Box ErrorBox(const QString& words)
{
    return {u" - 오류!!!"_q, u"☞ : "_q + words, MsgBoxCritical};
}

/// The box of the field called `name`, left empty.
inline Box RequiredBox(const QString& name)
{
    return {name, u"'"_q + name + u"' 항목을 입력하여 주십시오."_q, MsgBoxExclamation};
}

} // namespace tsms::test
