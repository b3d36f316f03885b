// The document area of the program, with its forms, on a BDP with many people, and what its cards read, bare.
#pragma once

#include "beside.h"
#include "people.h"

#include <QByteArray>
#include <QMainWindow>

class Stage
{
public:
    explicit Stage(int people, int searched = 0); // as People
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    void paint();        // all that is visible
    void paintChanges(); // what waits to be painted

    // Through the bare connection.
    void run(const QByteArray& statements);
    void read(const QByteArray& select) { readAll(people_.bare(), select); }

    // The statements by which a card shows a family, its members and its children, that of the children in the wording
    // that suits the engine best.
    void readFamily(const QByteArray& number);
    void readIndividual(const QByteArray& number);
    // Of the parents and the grandparents: the families of origin halve the numbers.
    void readTree(int number);

    // Searches so that the list of results is up.
    void searchNames();
    void readNames();

private:
    People people_;
    QMainWindow window_;
};
