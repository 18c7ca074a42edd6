#include "widgets/autocomplete.h"

#include "core/database.h"

#include <algorithm>
#include <numeric>

namespace vendrix::widgets {

namespace {

// Upper case character by character, so a folded text keeps the length and
// positions of the original ("ñandú" and "ÑANDÚ" fold alike).
QString plegar(const QString &text)
{
    QString out(text.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i)
        out[i] = text.at(i).toUpper();
    return out;
}

} // namespace

void AutoComplete::setUseDropDownList(bool on)
{
    usar_lista_ = on;
    if (!on)
        HideList();
}

void AutoComplete::AddItem(const QString &item)
{
    items_.append(item);
    indice_al_dia_ = false;
}

void AutoComplete::AddItems(const QStringList &items)
{
    items_.append(items);
    indice_al_dia_ = false;
}

void AutoComplete::AddItemsQuery(Database &db, const QString &sql)
{
    const Matrix rows = db.execQ_matriz(sql, QStringLiteral("external"));
    items_.reserve(items_.size() + rows.filas());
    for (int r = 0; r < rows.filas(); ++r)
        items_.append(rows.at(0, r));
    indice_al_dia_ = false;
}

void AutoComplete::Cleartems()
{
    items_.clear();
    sugerencia_.clear();
    filas_.clear();
    fila_ = -1;
    HideList();
    indice_al_dia_ = false;
}

void AutoComplete::preparar_indice() const
{
    if (indice_al_dia_)
        return;
    std::vector<std::pair<QString, int>> pares;
    pares.reserve(static_cast<size_t>(items_.size()));
    for (int i = 0; i < items_.size(); ++i)
        pares.emplace_back(plegar(items_.at(i)), i);
    std::sort(pares.begin(), pares.end());
    claves_.clear();
    posiciones_.clear();
    claves_.reserve(pares.size());
    posiciones_.reserve(pares.size());
    for (auto &[clave, posicion] : pares) {
        claves_.push_back(std::move(clave));
        posiciones_.push_back(posicion);
    }
    indice_al_dia_ = true;
}

std::pair<size_t, size_t> AutoComplete::rango(const QString &folded) const
{
    preparar_indice();
    // Sorted keys: those below the prefix, then those that begin with it.
    const auto desde = std::lower_bound(claves_.begin(), claves_.end(), folded);
    const auto hasta = std::partition_point(desde, claves_.end(),
                                            [&folded](const QString &k) { return k.startsWith(folded); });
    return {static_cast<size_t>(desde - claves_.begin()), static_cast<size_t>(hasta - claves_.begin())};
}

int AutoComplete::Lookup(const QString &prefix) const
{
    const auto [desde, hasta] = rango(plegar(prefix));
    if (desde == hasta)
        return -1;
    return *std::min_element(posiciones_.begin() + static_cast<std::ptrdiff_t>(desde),
                             posiciones_.begin() + static_cast<std::ptrdiff_t>(hasta));
}

void AutoComplete::Change(const QString &text, int sel_start, int sel_length)
{
    if (text != texto_)
        sugerencia_.clear();
    texto_ = text;
    inicio_ = std::clamp(sel_start, 0, static_cast<int>(text.size()));
    largo_ = std::clamp(sel_length, 0, static_cast<int>(text.size()) - inicio_);
}

bool AutoComplete::KeyPress(QChar key)
{
    if (key.unicode() < 32)
        return false;
    if (inline_ && !sugerencia_.isEmpty() && inicio_ < sugerencia_.size() &&
        key.toUpper() == sugerencia_.at(inicio_).toUpper()) {
        // The next letter of the suggestion: the caret moves over it.
        ++inicio_;
        largo_ = static_cast<int>(texto_.size()) - inicio_;
        if (usar_lista_)
            llenar_lista();
        return true;
    }
    const QString buscado = texto_.left(inicio_) + key;
    const int item = inline_ ? Lookup(buscado) : -1;
    if (item < 0) {
        // As typed: the key takes the place of the selection.
        sugerencia_.clear();
        texto_ = buscado + texto_.mid(inicio_ + largo_);
        inicio_ = static_cast<int>(buscado.size());
        largo_ = 0;
        if (usar_lista_ && !inline_)
            llenar_lista();
        else
            HideList();
        return false;
    }
    sugerencia_ = items_.at(item);
    texto_ = buscado + sugerencia_.mid(buscado.size());
    inicio_ = static_cast<int>(buscado.size());
    largo_ = static_cast<int>(texto_.size()) - inicio_;
    if (usar_lista_)
        llenar_lista();
    return true;
}

void AutoComplete::Backspace()
{
    const bool resto = largo_ > 0 && inicio_ + largo_ == texto_.size();
    if (largo_ > 0)
        texto_.remove(inicio_, largo_);
    if ((largo_ == 0 || resto) && inicio_ > 0)
        texto_.remove(--inicio_, 1);
    largo_ = 0;
    sugerencia_.clear();
    if (visible_)
        llenar_lista();
}

void AutoComplete::llenar_lista()
{
    filas_.clear();
    fila_ = -1;
    if (!usar_lista_ || items_.isEmpty()) {
        HideList();
        return;
    }
    const auto [desde, hasta] = rango(plegar(texto_.left(inicio_)));
    // The first rows in list order, without sorting the whole range.
    std::vector<int> posiciones(std::min<size_t>(hasta - desde, kFilasLista));
    std::partial_sort_copy(posiciones_.begin() + static_cast<std::ptrdiff_t>(desde),
                           posiciones_.begin() + static_cast<std::ptrdiff_t>(hasta), posiciones.begin(),
                           posiciones.end());
    for (const int p : posiciones) {
        if (fila_ < 0 && !sugerencia_.isEmpty() && items_.at(p) == sugerencia_)
            fila_ = static_cast<int>(filas_.size());
        filas_.append(items_.at(p));
    }
    visible_ = !filas_.isEmpty();
}

void AutoComplete::ShowList()
{
    llenar_lista();
}

bool AutoComplete::MoveInList(int step)
{
    if (!visible_ || filas_.isEmpty())
        return false;
    fila_ = std::clamp(fila_ + step, 0, static_cast<int>(filas_.size()) - 1);
    sugerencia_ = filas_.at(fila_);
    texto_ = sugerencia_;
    inicio_ = static_cast<int>(texto_.size());
    largo_ = 0;
    return true;
}

void AutoComplete::ClickItem(int row)
{
    if (row < 0 || row >= filas_.size())
        return;
    texto_ = filas_.at(row);
    inicio_ = static_cast<int>(texto_.size());
    largo_ = 0;
    sugerencia_.clear();
    HideList();
}

std::optional<QString> AutoComplete::Validate() const
{
    if (!limitar_ || texto_.isEmpty())
        return std::nullopt;
    const QString folded = plegar(texto_);
    const auto [desde, hasta] = rango(folded);
    if (desde < hasta && claves_.at(desde) == folded)
        return std::nullopt;
    return QString::fromLatin1(kNoEstaEnLista);
}

} // namespace vendrix::widgets
