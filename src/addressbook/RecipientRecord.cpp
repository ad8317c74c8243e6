#include "addressbook/RecipientRecord.h"

#include "runtime/CodePage949.h"
#include "runtime/Text.h"

namespace tsms {

namespace {

/// A writer that cuts by bytes may leave the first byte of a character that needs two.
QString FieldText(QByteArrayView field)
{
    QString text = Trim(FromCodePage949(QByteArray::fromRawData(field.data(), field.size())));
    if (text.endsWith(QChar::ReplacementCharacter))
        text.chop(1);
    return Trim(text);
}

} // namespace

RecipientRecord RecipientRecord::Of(QByteArrayView bytes)
{
    return {FieldText(bytes.sliced(21, 20)), FieldText(bytes.sliced(41, 16))};
}

} // namespace tsms
