#include "support/server/ResultColumns.h"

#include "runtime/CodePage949.h"
#include "support/server/ServerTables.h"
#include "support/server/StatementTokens.h"

#include <algorithm>
#include <optional>

namespace tsms::test {

namespace {

using TypeKind = ServerType::Kind;
using Range = StatementTokens::Range;
using TokenKind = DialectToken::Kind;

constexpr int WidestText = 8000;
constexpr int WidestWideText = 4000;
constexpr int HighestPrecision = 38;

/// Raised inside for an expression whose type is not known.
struct UnknownExpression
{
};

ServerType Int(bool nullable)
{
    return {TypeKind::Int, 0, 0, 0, nullable};
}

ServerType VarChar(int width, bool nullable)
{
    return {TypeKind::VarChar, std::clamp(width, 1, WidestText), 0, 0, nullable};
}

ServerType Numeric(int precision, int scale, bool nullable)
{
    return {TypeKind::Numeric, 0, std::min(precision, HighestPrecision), scale, nullable};
}

ServerColumn UnknownColumn(const QString& name)
{
    return {name, VarChar(WidestText, true), false, true};
}

/// Of two kinds that meet, the one that the other is turned into.
int Precedence(TypeKind kind)
{
    static constexpr TypeKind order[] = {TypeKind::VarChar, TypeKind::NVarChar, TypeKind::Int,
                                         TypeKind::Money,   TypeKind::Numeric,  TypeKind::Float,
                                         TypeKind::DateTime};
    return static_cast<int>(std::find(std::begin(order), std::end(order), kind) - std::begin(order));
}

/// A number as a decimal.
ServerType AsNumeric(const ServerType& type)
{
    switch (type.kind) {
    case TypeKind::Int:
        return Numeric(10, 0, type.nullable);
    case TypeKind::Money:
        return Numeric(19, 4, type.nullable);
    default:
        return type;
    }
}

ServerType Stronger(const ServerType& a, const ServerType& b)
{
    ServerType type = Precedence(a.kind) >= Precedence(b.kind) ? a : b;
    type.nullable = a.nullable || b.nullable;
    return type;
}

/// The type of an expression that is the one or the other.
ServerType EitherType(const ServerType& a, const ServerType& b)
{
    ServerType type = Stronger(a, b);
    if (a.IsText() && b.IsText())
        type.width = std::max(a.width, b.width);
    if (type.kind == TypeKind::Numeric && !a.IsText() && !b.IsText()) {
        const ServerType x = AsNumeric(a);
        const ServerType y = AsNumeric(b);
        type.scale = std::max(x.scale, y.scale);
        type.precision =
            std::min(HighestPrecision, std::max(x.precision - x.scale, y.precision - y.scale) + type.scale);
    }
    return type;
}

/// Of decimals the server keeps every digit that the operation can bring about.
ServerType NumericResult(const ServerType& a, const ServerType& b, char sign)
{
    const ServerType x = AsNumeric(a);
    const ServerType y = AsNumeric(b);
    const bool nullable = a.nullable || b.nullable;
    if (sign == '*')
        return Numeric(x.precision + y.precision + 1, x.scale + y.scale, nullable);
    if (sign == '/') {
        const int scale = std::max(6, x.scale + y.precision + 1);
        return Numeric(x.precision - x.scale + y.scale + scale, scale, nullable);
    }
    ServerType type = EitherType(x, y);
    type.precision = std::min(HighestPrecision, type.precision + 1);
    return type;
}

ServerType OperationType(const ServerType& a, const ServerType& b, char sign)
{
    if (a.IsText() && b.IsText()) {
        if (sign != '+')
            throw UnknownExpression();
        ServerType type = Stronger(a, b);
        const int widest = type.kind == TypeKind::VarChar ? WidestText : WidestWideText;
        type.width = std::max(a.width, b.width) == Endless ? Endless : std::min(a.width + b.width, widest);
        return type;
    }
    const ServerType type = Stronger(a, b);
    return type.kind == TypeKind::Numeric && !a.IsText() && !b.IsText() ? NumericResult(a, b, sign) : type;
}

/// Reads the list of a SELECT.
class ListReader
{
public:
    ListReader(const StatementTokens& tokens, Range select, QList<TableDescription> outer)
        : tokens_(tokens), tables_(std::move(outer))
    {
        const int from = tokens_.Find(select, "FROM");
        if (from < select.to)
            tables_.prepend(ServerTable(tokens_.Name(tokens_[from + 2] == "." ? from + 3 : from + 1)));
        list_ = {select.from + 1, from};
        if (tokens_.Is(list_.from, "DISTINCT") || tokens_.Is(list_.from, "ALL"))
            ++list_.from;
        if (tokens_.Is(list_.from, "TOP"))
            list_.from += 2;
    }

    QList<ServerColumn> Columns()
    {
        QList<ServerColumn> columns;
        for (const Range& item : tokens_.Items(list_)) {
            if (tokens_[item.to - 1] == "*" && !tables_.isEmpty())
                columns += AllColumns();
            else
                columns += Column(item);
        }
        return columns;
    }

private:
    QList<ServerColumn> AllColumns() const
    {
        QList<ServerColumn> columns;
        for (const ColumnDescription& column : tables_.first().columns)
            columns += Described(column, column.name);
        return columns;
    }

    static ServerColumn Described(const ColumnDescription& column, const QString& name)
    {
        return {name, TypeOf(column), column.type == ColumnType::GeneratedKey, false};
    }

    ServerColumn Column(Range item)
    {
        QString name;
        if (item.Count() > 2 && tokens_.Is(item.to - 2, "AS")) {
            name = tokens_.Name(item.to - 1);
            item.to -= 2;
        } else if (item.Count() > 1 && IsName(item.to - 1) && EndsOperand(item.to - 2) &&
                   !tokens_.Is(item.to - 1, "END")) {
            name = tokens_.Name(--item.to);
        }
        if (const ColumnDescription* column = PlainColumn(item))
            return Described(*column, name.isEmpty() ? tokens_.Name(item.to - 1) : name);
        try {
            at_ = item.from;
            const ServerType type = Expression();
            if (at_ == item.to)
                return {name, type, false, true};
        } catch (const UnknownExpression&) {
        }
        return UnknownColumn(name);
    }

    bool IsName(int at) const { return tokens_.KindOf(at) == TokenKind::Word; }
    bool EndsOperand(int at) const { return tokens_.KindOf(at) != TokenKind::Sign || tokens_[at] == ")"; }

    /// A column and nothing else, its table's name before it or not.
    const ColumnDescription* PlainColumn(Range item) const
    {
        const bool isQualified = item.Count() == 3 && tokens_[item.from + 1] == ".";
        if ((item.Count() != 1 && !isQualified) || !IsName(item.to - 1))
            return nullptr;
        return Find(tokens_.Name(item.to - 1));
    }

    const ColumnDescription* Find(const QString& name) const
    {
        for (const TableDescription& table : tables_)
            if (const ColumnDescription* column = FindColumn(table, name))
                return column;
        return nullptr;
    }

    bool Takes(std::string_view upper)
    {
        const bool isThere = tokens_.Is(at_, upper);
        at_ += isThere ? 1 : 0;
        return isThere;
    }

    void Demand(std::string_view upper)
    {
        if (!Takes(upper))
            throw UnknownExpression();
    }

    char TakeSign(std::string_view signs)
    {
        const std::string_view token = tokens_[at_];
        if (token.size() != 1 || signs.find(token.front()) == std::string_view::npos)
            return '\0';
        ++at_;
        return token.front();
    }

    ServerType Expression()
    {
        ServerType type = Product();
        while (const char sign = TakeSign("+-"))
            type = OperationType(type, Product(), sign);
        return type;
    }

    ServerType Product()
    {
        ServerType type = Factor();
        while (const char sign = TakeSign("*/"))
            type = OperationType(type, Factor(), sign);
        return type;
    }

    ServerType Factor()
    {
        if (TakeSign("+-"))
            return Factor();
        if (tokens_[at_] == "(")
            return Group();
        switch (tokens_.KindOf(at_)) {
        case TokenKind::Number:
            return NumberType(tokens_.Text(at_++));
        case TokenKind::Literal:
            return VarChar(static_cast<int>(ToCodePage949(tokens_.Literal(at_++)).size()), false);
        case TokenKind::Word:
            return Word();
        default:
            throw UnknownExpression();
        }
    }

    static ServerType NumberType(const QString& digits)
    {
        const qsizetype point = digits.indexOf(u'.');
        bool isInt = false;
        digits.toInt(&isInt);
        if (isInt)
            return Int(false);
        const auto count = static_cast<int>(digits.size() - (point < 0 ? 0 : 1));
        return Numeric(count, point < 0 ? 0 : static_cast<int>(digits.size() - point - 1), false);
    }

    ServerType Group()
    {
        const int end = tokens_.GroupEnd(at_);
        if (tokens_.Is(at_ + 1, "SELECT")) {
            const QList<ServerColumn> columns = ListReader(tokens_, {at_ + 1, end - 1}, tables_).Columns();
            at_ = end;
            ServerType type = columns.first().Type;
            type.nullable = true; // there may be no row
            return type;
        }
        ++at_;
        const ServerType type = Expression();
        Demand(")");
        return type;
    }

    ServerType Word()
    {
        if (tokens_.Is(at_, "N") && tokens_.KindOf(at_ + 1) == TokenKind::Literal) {
            at_ += 2;
            const auto length = static_cast<int>(tokens_.Literal(at_ - 1).size());
            return {TypeKind::NVarChar, std::clamp(length, 1, WidestWideText), 0, 0, false};
        }
        if (Takes("CASE"))
            return Case();
        if (Takes("NULL"))
            return Int(true);
        if (tokens_[at_ + 1] == "(")
            return Call();
        if (tokens_[at_ + 1] == ".")
            at_ += 2;
        const ColumnDescription* column = Find(tokens_.Name(at_++));
        if (!column)
            throw UnknownExpression();
        return TypeOf(*column);
    }

    ServerType Case()
    {
        std::optional<ServerType> type;
        bool hasElse = false;
        bool mayBeNull = false;
        while (!Takes("END")) {
            if (Takes("ELSE"))
                hasElse = true;
            else
                SkipCondition();
            if (Takes("NULL"))
                mayBeNull = true;
            else
                type = type ? EitherType(*type, Expression()) : Expression();
        }
        if (!type)
            throw UnknownExpression();
        type->nullable = type->nullable || mayBeNull || !hasElse;
        return *type;
    }

    void SkipCondition()
    {
        while (at_ < tokens_.Count() && !tokens_.Is(at_, "THEN"))
            at_ = tokens_[at_] == "(" ? tokens_.GroupEnd(at_) : at_ + 1;
        Demand("THEN");
    }

    ServerType Call()
    {
        const int name = at_;
        const int end = tokens_.GroupEnd(++at_);
        const QList<Range> arguments = tokens_.Items({at_ + 1, end - 1});
        const ServerType type = CallType(name, arguments);
        at_ = end;
        return type;
    }

    ServerType Argument(const QList<Range>& arguments, int index)
    {
        if (index >= arguments.size())
            throw UnknownExpression();
        at_ = arguments[index].from;
        const ServerType type = Expression();
        if (at_ != arguments[index].to)
            throw UnknownExpression();
        return type;
    }

    ServerType CallType(int name, const QList<Range>& arguments)
    {
        const auto is = [this, name](std::string_view upper) { return tokens_.Is(name, upper); };
        if (is("COUNT"))
            return Int(true);
        if (is("GETDATE"))
            return {TypeKind::DateTime, 0, 0, 0, false};
        if (is("DATEADD"))
            return {TypeKind::DateTime, 0, 0, 0, true};
        if (is("CONVERT"))
            return Converted(arguments);
        if (is("LEFT") || is("RIGHT"))
            return Part(arguments);
        if (is("REPLACE"))
            return VarChar(WidestText, Argument(arguments, 0).nullable);
        if (is("ISNULL")) {
            ServerType type = Argument(arguments, 0);
            type.nullable = type.nullable && Argument(arguments, 1).nullable;
            return type;
        }
        if (is("SUM") || is("MIN") || is("MAX")) {
            ServerType type = Argument(arguments, 0);
            type.nullable = true; // there may be no row
            if (is("SUM") && type.kind == TypeKind::Numeric)
                type.precision = HighestPrecision;
            return type;
        }
        throw UnknownExpression();
    }

    ServerType Converted(const QList<Range>& arguments)
    {
        if (arguments.size() < 2 || !tokens_.Is(arguments[0].from, "VARCHAR"))
            throw UnknownExpression();
        return VarChar(tokens_.Text(arguments[0].from + 2).toInt(), Argument(arguments, 1).nullable);
    }

    ServerType Part(const QList<Range>& arguments)
    {
        ServerType type = Argument(arguments, 0);
        Argument(arguments, 1);
        if (!type.IsText())
            throw UnknownExpression();
        bool isNumber = false;
        const int length = tokens_.Text(arguments[1].from).toInt(&isNumber);
        if (isNumber && arguments[1].Count() == 1)
            type.width = std::clamp(length, 1, type.width);
        return type;
    }

    const StatementTokens& tokens_;
    QList<TableDescription> tables_; ///< whose columns can be named, the nearest first
    Range list_{};
    int at_ = 0;
};

} // namespace

QList<ServerColumn> ResultColumns(const QString& select, const QStringList& fieldNames)
{
    const StatementTokens tokens(select);
    QList<ServerColumn> columns = ListReader(tokens, {0, tokens.Count()}, {}).Columns();
    if (columns.size() == fieldNames.size())
        return columns;
    columns.clear();
    for (const QString& name : fieldNames)
        columns += UnknownColumn(name);
    return columns;
}

} // namespace tsms::test
