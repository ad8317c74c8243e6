#include "addressbook/RecipientRecord.h"

#include "runtime/CodePage949.h"
#include "runtime/Text.h"

#include <utility>

namespace tsms {

namespace {

/// A blank is never a part of another character, so most of a field need not be decoded.
QByteArrayView WithoutFilling(QByteArrayView field)
{
    while (field.startsWith(' '))
        field = field.sliced(1);
    while (field.endsWith(' '))
        field.chop(1);
    return field;
}

/// A writer that cuts by bytes may leave the first byte of a character that needs two.
QString FieldText(QByteArrayView field)
{
    const QByteArrayView bytes = WithoutFilling(field);
    QString text = FromCodePage949(QByteArray::fromRawData(bytes.data(), bytes.size()));
    if (text.endsWith(QChar::ReplacementCharacter))
        text.chop(1);
    return Trim(std::move(text));
}

} // namespace

RecipientRecord RecipientRecord::Of(QByteArrayView bytes)
{
    return {FieldText(bytes.sliced(21, 20)), FieldText(bytes.sliced(41, 16))};
}

} // namespace tsms
