#include "study/people/finder.h"

#include "platform/jet/rows.h"
#include "study/people/search.h"

namespace study {

struct Finder::Private
{
    explicit Private(jet::Connection& connection) : bdp(connection), index(connection), kin(connection, index) {}

    void update()
    {
        index.update();
        kin.update();
    }

    jet::Connection& bdp;
    NameIndex index;
    Kin kin;
};

Finder::Finder(jet::Connection& bdp) : d_(std::make_unique<Private>(bdp)) {}

Finder::~Finder() = default;

QList<Candidate> Finder::find(const Act& act, int person, const Conclusions& conclusions, int limit)
{
    if (person < 0 || person >= act.people.size() || limit <= 0) return {};
    d_->update();
    const jet::OneLook look(d_->bdp);
    return Search(d_->bdp, d_->index, d_->kin, act, conclusions).candidates(person, limit);
}

QList<CoupleCandidate> Finder::couples(const Act& act, int person, const Conclusions& conclusions, int limit)
{
    if (person < 0 || person >= act.people.size() || limit <= 0) return {};
    d_->update();
    const jet::OneLook look(d_->bdp);
    return Search(d_->bdp, d_->index, d_->kin, act, conclusions).couples(person, limit);
}

std::optional<CoupleCandidate> Finder::onlyCouple(const Act& act, int person, const Conclusions& conclusions)
{
    if (person < 0 || person >= act.people.size()) return {};
    d_->update();
    const jet::OneLook look(d_->bdp);
    return Search(d_->bdp, d_->index, d_->kin, act, conclusions).onlyCouple(person);
}

void Finder::update()
{
    d_->update();
}

bool Finder::prepare()
{
    return d_->index.prepare();
}

int Finder::prepared() const
{
    return d_->index.prepared();
}

void Finder::rebuild()
{
    d_->index.rebuild();
}

} // namespace study
