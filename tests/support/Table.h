#ifndef SONAVIA_TESTS_SUPPORT_TABLE_H
#define SONAVIA_TESTS_SUPPORT_TABLE_H

#include <QtTest>

#include <tuple>
#include <vector>

/// The table of a data-driven test, as rows of values instead of named columns:
///
///     using Sums = Table<int, int, int>; // a, b; their sum
///     void adds_data()
///     {
///         Sums row;
///         row("positive", 1, 2, 3);
///     }
///     void adds()
///     {
///         const auto& [a, b, sum] = Sums::row();
///         QCOMPARE(add(a, b), sum);
///     }
template <typename... Types>
class Table
{
public:
    Table()
    {
        rows().clear();
        QTest::addColumn<int>("row");
    }

    void operator()(const char* name, const Types&... values) const
    {
        QTest::newRow(name) << static_cast<int>(rows().size());
        rows().emplace_back(values...);
    }
    void operator()(const QString& name, const Types&... values) const
    {
        operator()(qPrintable(name), values...);
    }

    /// The row that the test is run for.
    static const std::tuple<Types...>& row()
    {
        QFETCH(int, row);
        return rows().at(static_cast<std::size_t>(row));
    }

private:
    static std::vector<std::tuple<Types...>>& rows()
    {
        static std::vector<std::tuple<Types...>> all;
        return all;
    }
};

#endif
