// What a new BDP holds, and how a bare program would write it.
#pragma once

#include <QString>

#include <string>
#include <vector>

namespace bench {

struct NewBdp
{
    struct Table
    {
        std::string insert;
        int columns = 0;
        std::vector<std::string> values; // row by row
    };

    std::vector<std::string> schema;
    std::vector<Table> tables;
};

// Of a BDP made by the program: the columns that the data files set, and their rows.
NewBdp contentsOf(const QString& path);

// The same rows in one transaction, in a file that is on the disk when it ends.
void writeContents(const NewBdp& contents, const QString& path);

} // namespace bench
