#include "compose/Recipients.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <vector>

using namespace tsms;
using namespace tsms::test;

namespace {

class GivenRows final : public RecipientRows
{
public:
    struct Row
    {
        QString phone;
        bool hidden = false;
    };
    explicit GivenRows(std::vector<Row> given) : rows(std::move(given)) {}
    int MaxRows() const override { return static_cast<int>(rows.size()); }
    bool RowHidden(int row) const override { return rows[static_cast<std::size_t>(row) - 1].hidden; }
    QString NameText(int) const override { return {}; }
    QString PhoneText(int row) const override { return rows[static_cast<std::size_t>(row) - 1].phone; }
    std::vector<Row> rows;
};

TEST(Recipients, TheFirstCountSeesRemovedRowsAndTheSecondDoesNot)
{
    const GivenRows rows({{u"010-1"_q}, {u"010-2"_q, true}, {u"  "_q}, {u""_q}, {u"x"_q}});
    EXPECT_EQ(CountFilled(rows), 3);
    EXPECT_EQ(CountRecipients(rows), 2);
}

} // namespace
