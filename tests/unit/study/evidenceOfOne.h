// A parish in which what two records of one person have in common is looked at.
#pragma once

#include "study/people.h"

#include "study/linkage/candidates.h"
#include "study/parish/snapshot.h"

#include <algorithm>
#include <optional>
#include <vector>

class EvidenceOfOne : public People
{
protected:
    // A parish has other people, too: a name is worth what is rare of it.
    EvidenceOfOne()
    {
        static constexpr int each = 25;
        for (int i = 0; i < each; ++i) {
            for (const char* name : {"João da Silva", "Pedro Dias", "António Gomes", "Manuel Alves", "Francisco Pires"})
                person({name, 'm', "1600-01-02"});
            for (const char* name : {"Maria da Silva", "Ana Dias", "Isabel Gomes", "Catarina Alves", "Luísa Pires"})
                person({name, 'f', "1600-01-02"});
        }
    }

    // All that isn't vetoed, with its evidence.
    std::vector<study::linkage::Link> found()
    {
        using namespace study::linkage;
        Question question;
        question.named = namedParents(bdp);
        question.spouses = namedSpouses(bdp);
        Model model = startModel();
        model.hideBelow = -50;
        return links(study::parish::Snapshot::read(bdp), model, question);
    }

    std::optional<study::linkage::Link> between(qint64 one, qint64 other)
    {
        return linkOf(study::linkage::recordOf(study::parish::PersonNumber(one)),
                      study::linkage::recordOf(study::parish::PersonNumber(other)));
    }
    std::optional<study::linkage::Link> betweenCouples(qint64 one, qint64 other)
    {
        return linkOf(study::linkage::recordOf(study::parish::FamilyNumber(one)),
                      study::linkage::recordOf(study::parish::FamilyNumber(other)));
    }
    bool areProposed(qint64 one, qint64 other)
    {
        const std::optional<study::linkage::Link> link = between(one, other);
        return link && link->bits >= study::linkage::startModel().suggestFrom;
    }

    qint64 umbelino(const char* birth = "", const char* death = "")
    {
        return person({"Umbelino de Abreu", 'm', birth, death});
    }
    void assist(char act, qint64 entity, qint64 who, const char* date)
    {
        run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) values (?, ?, ?, ?, ?)",
            {QString(QChar(act)), entity, QString(date), who, QString(act == 'b' ? 'p' : 't')});
    }
    void reside(qint64 who, const char* place, const char* date = "1710-01-02")
    {
        run("insert into residencia (numero, tiporesid, dataref, datafixa, localresid, tipolocal) values (?, 'i', ?, "
            "1, "
            "?, 'L')",
            {who, QString(date), QString(place)});
    }
    static double bitsOf(const std::optional<study::linkage::Link>& link, const QString& field)
    {
        if (!link) return 0;
        const auto found = std::ranges::find(link->evidence, field, &study::linkage::Evidence::field);
        return found != link->evidence.end() ? found->bits : 0;
    }

private:
    std::optional<study::linkage::Link> linkOf(const study::linkage::Record& one, const study::linkage::Record& other)
    {
        for (const study::linkage::Link& link : found())
            if (link.one == one && link.other == other) return link;
        return {};
    }
};
