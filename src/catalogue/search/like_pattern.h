#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

#include <utility>
#include <vector>

namespace vendrix {

// A LIKE pattern as the earlier database engine read it, matched against a
// text folded by `plegar_texto` (the pattern is folded the same way, so the
// match ignores case, Ñ/ñ and Á/á included, but tells Á from A):
// - `%` is any run of characters, `_` exactly one character (a blank too);
// - `[...]` is one character of the group, `[!...]` one not in it, `a-z` a
//   range; the group ends at the first `]`, and `[]` matches nothing at all
//   (it stands for no character);
// - `*`, `?`, `#` and a `]` outside a group are plain characters.
// A character is one UTF-16 unit, as in the engine's strings.
class LikePattern {
public:
    // The pattern `%text%`: the text anywhere.
    static LikePattern contiene(const QString &text);
    explicit LikePattern(const QString &pattern);

    // True when the whole folded text matches.
    bool coincide(QStringView plegado) const;
    // The runs of plain characters the pattern holds between wildcards and
    // groups of more than one character: a text that matches holds each of
    // them. A group of one character counts as that character.
    const QStringList &tramos() const { return tramos_; }

private:
    enum class Kind { Caracter, Uno, Varios, Grupo };
    struct Element {
        Kind tipo;
        QChar caracter;
        std::vector<std::pair<QChar, QChar>> rangos; // of a group; one character is (c, c)
        bool negado = false;

        bool acepta(QChar c) const;
    };

    void compilar(const QString &folded);
    void agregar_grupo(QStringView content);

    std::vector<Element> elementos_;
    QStringList tramos_;
    QString mas_largo_; // the longest run: a quick test before the full match
};

} // namespace vendrix
