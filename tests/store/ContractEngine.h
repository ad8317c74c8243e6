#pragma once

#include "store/engine/Connection.h"

#include <functional>
#include <memory>
#include <ostream>
#include <string>

namespace tsms::test {

/// A database that an engine reaches: all tables for 2010 to 2030, the account row, nothing else.
class ContractDatabase
{
public:
    virtual ~ContractDatabase() = default;

    /// A connection that is not open yet.
    virtual std::unique_ptr<Connection> NewConnection() = 0;
};

/// One engine of the contract suite.
struct ContractEngine
{
    std::string name;
    std::function<std::unique_ptr<ContractDatabase>()> makeDatabase;

    friend void PrintTo(const ContractEngine& engine, std::ostream* out) { *out << engine.name; }
};

} // namespace tsms::test
