#pragma once

#include <QRandomGenerator>
#include <QStringList>
#include <algorithm>
#include <set>
#include <tuple>
#include <vector>

struct Passage {
    int id, kernoId, sourceId, questionId, start, length;
    QString author;
    int end() const { return start + length; }
    bool sameText(const Passage& other) const {
        return sourceId == other.sourceId && questionId == other.questionId;
    }
    bool overlaps(const Passage& other) const {
        return sameText(other) && start < other.end() && other.start < end();
    }
};

struct Link {
    int id, sourceId, keyId, valueId;
};

/// A small project, told by its links and highlights, dense enough for everything to overlap now and then.
struct Project {
    std::vector<Passage> highlights;
    std::vector<Link> links;
    std::vector<std::pair<int, int>> memberships;  ///< kerno, group
    int kernos = 6, sources = 4, questions = 2, keys = 2, valuesOfKey = 3;
    QStringList authors{QStringLiteral("Ann"), QStringLiteral("Bo"), QString::fromUtf8("Çem")};

    explicit Project(quint32 seed) {
        QRandomGenerator random(seed);
        const auto pick = [&](int n) { return 1 + random.bounded(n); };
        for (int id = 1; id <= 120; ++id) {
            highlights.push_back({id, pick(kernos), pick(sources), pick(questions), random.bounded(60),
                                  random.bounded(1, 15), authors[random.bounded(authors.size())]});
        }
        for (int id = 1; id <= 8; ++id) {
            const int key = pick(keys);
            links.push_back({id, pick(sources), key, (key - 1) * valuesOfKey + pick(valuesOfKey)});
        }
        for (int kerno = 1; kerno <= kernos; ++kerno) {
            if (random.bounded(2))
                memberships.emplace_back(kerno, pick(3));
        }
    }

    QString kernoAuthor(int id) const { return authors[id % 3]; }
    /// Values of a key: a number as text, a word, a greater number.
    static QString valueText(int id) {
        const QStringList texts{QStringLiteral("7"), QStringLiteral("Town"), QStringLiteral("30")};
        return texts[(id - 1) % 3];
    }

    std::set<int> sourcesOfKernos(const std::set<int>& wanted) const {
        std::set<int> found;
        for (const Passage& each : highlights) {
            if (wanted.count(each.kernoId))
                found.insert(each.sourceId);
        }
        return found;
    }
};

/// Characters under at least one of the highlights that `counts` picks, counted one by one.
template <typename Counts> int covered(const Project& project, Counts counts) {
    std::set<std::tuple<int, int, int>> characters;
    for (const Passage& each : project.highlights) {
        for (int at = each.start; counts(each) && at < each.end(); ++at)
            characters.emplace(each.sourceId, each.questionId, at);
    }
    return static_cast<int>(characters.size());
}

template <typename Counts> int number(const Project& project, Counts counts) {
    return static_cast<int>(std::count_if(project.highlights.begin(), project.highlights.end(), counts));
}

/// Overlapping pairs, every two highlights compared.
inline int pairs(const Project& project, int kerno1, int kerno2) {
    int count = 0;
    const auto& all = project.highlights;
    for (size_t i = 0; i < all.size(); ++i) {
        for (size_t j = i + 1; j < all.size(); ++j) {
            const bool both = (all[i].kernoId == kerno1 && all[j].kernoId == kerno2) ||
                              (all[i].kernoId == kerno2 && all[j].kernoId == kerno1);
            count += both && all[i].overlaps(all[j]);
        }
    }
    return count;
}
