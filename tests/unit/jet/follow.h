// What the tests of lists that follow their connection stand on.
#pragma once

#include "jet/testbdp.h"
#include "jet/walked.h"

namespace jet::test {

class AListOpenedAgain : public TestBdp
{
protected:
    AListOpenedAgain()
    {
        run("create table pessoa (nind double not null, nome varchar(20), ordem long, "
            "constraint PKp primary key (nind))");
        run("create table outra (nind double not null, nome varchar(20), constraint PKo primary key (nind))");
        for (const int nind : {30, 10, 20})
            insert(nind);
    }

    void insert(int nind) { run("insert into pessoa (nind, nome) values (?, ?)", {nind, QStringLiteral("Ana")}); }

    // What a list shows from its first row on, and then stands on the first one again.
    static std::string shown(DataControl& list)
    {
        const std::string all = rows(list.recordset());
        if (list.hasRows()) list.recordset().moveFirst();
        return all;
    }

    int walked() const { return rowsWalked(bdp.handle()); } // since this was asked last
};

} // namespace jet::test
