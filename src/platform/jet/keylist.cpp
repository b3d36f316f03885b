#include "platform/jet/keylist.h"

#include <algorithm>

namespace jet {

void KeyList::append(qint64 key, std::optional<double> number)
{
    const bool ordered = byNumber_ && isOrdered() && number && (numbers_.empty() || numbers_.back() < *number);
    if (ordered)
        numbers_.push_back(*number);
    else if (byNumber_)
        std::deque<double>().swap(numbers_);
    ascending_ = ascending_ && (keys_.empty() || keys_.back() < key);
    greatest_ = keys_.empty() ? key : std::max(greatest_, key);
    keys_.push_back(key);
}

void KeyList::erase(int place)
{
    const bool ordered = byNumber_ && isOrdered();
    keys_.erase(keys_.begin() + place);
    if (ordered) numbers_.erase(numbers_.begin() + place);
}

int KeyList::placeFor(qint64 key, std::optional<double> number) const
{
    if (byNumber_) return int(std::lower_bound(numbers_.begin(), numbers_.end(), *number) - numbers_.begin());
    return int(std::lower_bound(keys_.begin(), keys_.end(), key) - keys_.begin());
}

int KeyList::placeOf(qint64 key, std::optional<double> number) const
{
    const auto stands = [&](auto at) { return at != keys_.end() && *at == key; };
    if (ascending_) {
        const auto at = std::lower_bound(keys_.begin(), keys_.end(), key);
        return stands(at) ? int(at - keys_.begin()) : -1;
    }
    if (byNumber_ && isOrdered() && number) {
        const auto at = keys_.begin() + placeFor(key, number);
        if (stands(at)) return int(at - keys_.begin());
    }
    if (key > greatest_) return -1;
    const auto at = std::find(keys_.begin(), keys_.end(), key);
    return stands(at) ? int(at - keys_.begin()) : -1;
}

bool KeyList::put(qint64 key, std::optional<double> number)
{
    if (const int place = placeOf(key, number); place >= 0) {
        if (!byNumber_ || numbers_[place] == *number) return true;
        erase(place);
    }
    const int place = placeFor(key, number);
    if (byNumber_ && place < size() && numbers_[place] == *number) return false;
    insert(place, key, number);
    return true;
}

void KeyList::insert(int place, qint64 key, std::optional<double> number)
{
    const bool above = place == 0 || keys_[place - 1] < key;
    const bool below = place == size() || key < keys_[place];
    ascending_ = ascending_ && above && below;
    greatest_ = keys_.empty() ? key : std::max(greatest_, key);
    keys_.insert(keys_.begin() + place, key);
    if (byNumber_) numbers_.insert(numbers_.begin() + place, *number);
}

} // namespace jet
