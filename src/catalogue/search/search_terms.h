#pragma once

// The text of a catalogue search, from what the operator typed to the terms
// every article is tested against.
//
// The text goes through the steps the search always took, in this order:
// `preparar_texto_busqueda`, then, as the options say, `quitar_preposiciones`
// and `terminos_similares`, then `filtro_terminos` or `filtro_ortografia`,
// which split it into terms. This working text keeps the escaped form all
// along (a quote doubled, "%" written "[%]"...): the option steps count
// characters of that form, so "''ES" is a four-letter word that loses its
// "ES", and the log shows it. `texto_literal` then turns each term back into
// the characters typed.
//
// Every character of a term stands for itself: there is no wildcard, so
// "[X]", "50%", "A_B" and "*" find the texts that hold them. An article
// matches a term when its folded text holds the folded term (see
// `plegar_texto`: case is ignored, Ñ/ñ and Á/á included, but Á is not A).

#include <QString>
#include <QStringList>

#include <vector>

namespace vendrix {

// Escapes the text, in this order: `'` to `''`, `[` to `[[]`, `]` to `[]]`,
// `%` to `[%]`. The `]` of "[[]" is escaped in its turn, so "[" becomes
// "[[[]]". Every `[` of the result starts one of the three escapes, which is
// what lets `texto_literal` undo them after the option steps, whose
// replacements never touch a `[`, a `]` or a `%`.
QString preparar_texto_busqueda(const QString &text);

// Upper case, then each " DE ", " PARA ", " CON ", " / ", " \ " becomes one
// blank, in this order. A preposition at the very start or end stays.
QString quitar_preposiciones(const QString &text);

// Singular forms: split at blanks; a term of more than 3 characters ending in
// "ES" (any case) loses those two letters, else one ending in "S" loses that
// letter; shorter terms stay. Each term, empty ones too, is followed by a
// blank in the result.
QString terminos_similares(const QString &text);

// The spelling variants of a term: the work list of the ten substitutions
// S->C, S->Z, C->S, C->Z, Z->S, Z->C, V->B, B->V, LL->Y, Y->LL, each
// replacing every occurrence in an item. The list starts with the term in
// upper case; every item, also those added on the way, is tried in turn, and
// a result that differs from its item and is not yet listed is added. So
// "CABALLO" also gives "CAVAYO".
QStringList variantes_ortografia(const QString &term);

// The characters a piece of the working text stands for: it undoes
// `preparar_texto_busqueda` ("''" is "'", "[[[]]" "[", "[]]" "]", "[%]" "%").
// Anything else, a lone "[" or "'" too, stays as it is.
QString texto_literal(const QString &trabajo);

// What an article must hold to be found. Every term must match; a term
// matches when the article's text holds any of its texts. That text is
// supplier, group, observations, description, brand and code, each followed
// by one blank (an empty field gives an empty text), and then the user's
// comment on the article when `con_comentario` is set. A term holds no
// blank, so it matches inside one field.
struct SearchCondition {
    std::vector<QStringList> terminos; // the texts to look for, per term, as typed
    bool con_comentario = false;

    bool operator==(const SearchCondition &) const = default;
};

// Every non-empty term of the text, split at blanks, one text each.
SearchCondition filtro_terminos(const QString &text);
// Every non-empty term with its spelling variants: the term as typed, then
// the items the work list added. With `con_comentario` the haystack also
// holds the user's comment on the article.
SearchCondition filtro_ortografia(const QString &text, bool con_comentario);

} // namespace vendrix
