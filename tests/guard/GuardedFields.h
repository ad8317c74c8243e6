#pragma once

#include "guard/GuardBench.h"

#include <functional>

namespace tsms::test {

/// A field whose text comes to a statement between apostrophes.
struct GuardedField
{
    std::string name;                                                          ///< of the tests
    std::function<void(GuardBench& bench, const QString& text, Way way)> work; ///< takes the road
    QList<Way> ways = {Way::Typed, Way::Pasted};
    qsizetype room = 0;      ///< how many characters of a text it takes behind `lead`; 0: more than any has
    bool typesLines = false; ///< the Enter key puts a line break into it
    bool takesLines = false; ///< else it holds what stands before the first line break
    QString lead = {}; ///< stands in the field before the text, so that it comes to the statement at all
    QList<Asked> ahead = {};  ///< the boxes before the statement
    QList<Asked> failed = {}; ///< those behind one that failed, past the database's own
    QList<Asked> done = {};   ///< those behind a good one
    QString tail = {};        ///< of the statement, behind its last apostrophe
    QStringList around = {};  ///< what the database is told besides, when the statement fails
    QString stored = {};      ///< the query of what is stored; empty when the text is not stored as it stands
    QStringList changes = {}; ///< the tables that a good statement changes

    /// The text or, where it has no room, the short form, behind the lead.
    QString Fit(const QString& text, const QString& brief) const;
    /// What the field holds when this was put into it.
    QString Kept(const QString& text) const;
};

const QList<GuardedField>& GuardedFields();

} // namespace tsms::test
