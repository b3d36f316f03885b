// The keys of a list of rows, in the order of the list.
#pragma once

#include <QtGlobal>

#include <deque>
#include <optional>

namespace jet {

// A key takes 8 bytes, and 8 more the number by which the list is ordered, if it is. In pieces: a million keys are
// never copied, nor twice in memory, while they are read, and a row comes in or goes out without a copy of the others.
// A number that isn't greater than the one before it, or none, orders nothing: then the list is just a list.
class KeyList
{
public:
    using Keys = std::deque<qint64>;

    enum class Order
    {
        ByNumber,
        ByKey // as long as each is greater than the one before it
    };

    explicit KeyList(Order order = Order::ByKey) : byNumber_(order == Order::ByNumber) {}

    const Keys& keys() const { return keys_; }
    int size() const { return int(keys_.size()); }
    bool ascends() const { return ascending_; }           // by the keys
    double lastNumber() const { return numbers_.back(); } // Precondition: ordered by numbers, and not empty
    bool isOrdered() const { return byNumber_ ? numbers_.size() == keys_.size() : ascending_; }

    void append(qint64 key, std::optional<double> number = {});
    void erase(int place);

    // -1 where it isn't in the list. A search by halves where the keys ascend, or where the number is that of the list.
    int placeOf(qint64 key, std::optional<double> number = {}) const;
    // Sees to it that the key stands where it belongs, once. False where nobody can tell where.
    // Precondition: isOrdered(); a number, if the list is ordered by such.
    bool put(qint64 key, std::optional<double> number = {});

private:
    int placeFor(qint64 key, std::optional<double> number) const;
    void insert(int place, qint64 key, std::optional<double> number);

    Keys keys_;
    std::deque<double> numbers_; // as many as keys while they order the list
    bool byNumber_;
    bool ascending_ = true; // each key is greater than the one before it
    qint64 greatest_ = 0;   // of the keys that are in the list or have been
};

} // namespace jet
