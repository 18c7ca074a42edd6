#include "catalogue/search/like_pattern.h"

#include "catalogue/search/search_index.h"

#include <algorithm>

namespace vendrix {

bool LikePattern::Element::acepta(QChar c) const
{
    switch (tipo) {
    case Kind::Caracter:
        return c == caracter;
    case Kind::Uno:
        return true;
    case Kind::Grupo:
        for (const auto &[from, to] : rangos) {
            if (c >= from && c <= to)
                return !negado;
        }
        return negado;
    case Kind::Varios:
        break;
    }
    return false;
}

LikePattern LikePattern::contiene(const QString &text)
{
    return LikePattern(QLatin1Char('%') + text + QLatin1Char('%'));
}

LikePattern::LikePattern(const QString &pattern)
{
    compilar(plegar_texto(pattern));
    QString run;
    const auto close_run = [&run, this] {
        if (!run.isEmpty())
            tramos_ << run;
        run.clear();
    };
    for (const Element &e : elementos_) {
        if (e.tipo == Kind::Caracter)
            run += e.caracter;
        else
            close_run();
    }
    close_run();
    for (const QString &t : std::as_const(tramos_)) {
        if (t.size() > mas_largo_.size())
            mas_largo_ = t;
    }
}

void LikePattern::compilar(const QString &folded)
{
    for (qsizetype i = 0; i < folded.size(); ++i) {
        const QChar c = folded.at(i);
        if (c == QLatin1Char('%')) {
            // Two runs in a row match what one does.
            if (elementos_.empty() || elementos_.back().tipo != Kind::Varios)
                elementos_.push_back({Kind::Varios, {}, {}});
        } else if (c == QLatin1Char('_')) {
            elementos_.push_back({Kind::Uno, {}, {}});
        } else if (c == QLatin1Char('[') && folded.indexOf(QLatin1Char(']'), i + 1) > i) {
            const qsizetype close = folded.indexOf(QLatin1Char(']'), i + 1);
            agregar_grupo(QStringView(folded).mid(i + 1, close - i - 1));
            i = close;
        } else {
            elementos_.push_back({Kind::Caracter, c, {}});
        }
    }
}

// A group of one character, even written twice ("[[[]" is "["), is that
// character; `[]` adds nothing.
void LikePattern::agregar_grupo(QStringView content)
{
    if (content.isEmpty())
        return;
    Element group{Kind::Grupo, {}, {}};
    if (content.size() > 1 && content.front() == QLatin1Char('!')) {
        group.negado = true;
        content = content.mid(1);
    }
    for (qsizetype k = 0; k < content.size(); ++k) {
        if (k + 2 < content.size() && content.at(k + 1) == QLatin1Char('-')) {
            group.rangos.emplace_back(content.at(k), content.at(k + 2));
            k += 2;
        } else {
            group.rangos.emplace_back(content.at(k), content.at(k));
        }
    }
    const auto same = [&group](const std::pair<QChar, QChar> &r) {
        return r.first == r.second && r.first == group.rangos.front().first;
    };
    if (!group.negado && std::all_of(group.rangos.begin(), group.rangos.end(), same))
        elementos_.push_back({Kind::Caracter, group.rangos.front().first, {}});
    else
        elementos_.push_back(std::move(group));
}

// The usual matching of a pattern with runs: on a mismatch, go back to the
// last `%` and let it take one more character.
bool LikePattern::coincide(QStringView plegado) const
{
    if (!mas_largo_.isEmpty() && !plegado.contains(mas_largo_))
        return false;
    const size_t n = elementos_.size();
    size_t p = 0;
    qsizetype t = 0;
    bool star = false;
    size_t star_p = 0;    // the element after the last `%`
    qsizetype star_t = 0; // where that `%` started to take characters
    while (t < plegado.size()) {
        if (p < n && elementos_[p].tipo == Kind::Varios) {
            star = true;
            star_p = ++p;
            star_t = t;
        } else if (p < n && elementos_[p].acepta(plegado.at(t))) {
            ++p;
            ++t;
        } else if (star) {
            p = star_p;
            t = ++star_t;
        } else {
            return false;
        }
    }
    while (p < n && elementos_[p].tipo == Kind::Varios)
        ++p;
    return p == n;
}

} // namespace vendrix
