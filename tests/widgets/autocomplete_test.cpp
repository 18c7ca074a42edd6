#include "support/qt_print.h"
#include "widgets/autocomplete.h"

#include <gtest/gtest.h>

using namespace vendrix::widgets;

namespace {

// Keys typed into an empty box: "<" is Backspace, "v" and "^" move down and
// up in the list; any other character is typed.
void teclear(AutoComplete &c, const QString &teclas)
{
    for (const QChar k : teclas) {
        if (k == u'<')
            c.Backspace();
        else if (k == u'v' || k == u'^')
            c.MoveInList(k == u'v' ? 1 : -1);
        else
            c.KeyPress(k);
    }
}

} // namespace

TEST(AutoComplete, TypingCompletesFromTheList)
{
    const struct {
        const char *caso;
        const char *items; // joined by "|"
        const char *teclas;
        const char *texto;
        const char *seleccion;
        const char *filas; // the drop-down's rows when shown, joined by "|"; "" when hidden
        bool en_linea = true;
        bool lista = true;
    } casos[] = {
        {"the next letter in the other case keeps the suggestion", "Tramontano|Tornimax", "tRA", "tramontano",
         "montano", "Tramontano"},
        {"ñ typed against Ñ starts the suggestion", "Ñandú|Nativa", "ña", "ñandú", "ndú", "Ñandú"},
        {"Ñ typed against ñ keeps it", "Caño|Cano", "caÑ", "caño", "o", "Caño"},
        {"a mismatching key looks up again", "Tornillo|Tramontano", "tr", "tramontano", "amontano",
         "Tramontano"},
        {"the first match in list order, not in sorted order", "Tornimax|Tornillo", "torni", "tornimax",
         "max", "Tornimax|Tornillo"},
        {"no match lets the key in and hides the list", "Tornillo", "tx", "tx", "", ""},
        {"Backspace drops the suggested rest and one letter", "Tramontano", "tra<", "tr", "", "Tramontano"},
        {"after Backspace the next key completes again", "Tramontano", "tra<a", "tramontano", "montano",
         "Tramontano"},
        {"Backspace without a suggestion drops one letter", "Tornillo", "tx<<", "", "", ""},
        {"Down takes the next row of the list", "Acme|Acero|Bronce", "acv", "Acero", "", "Acme|Acero"},
        {"Up stops at the first row", "Acme|Acero|Bronce", "avv^^", "Acme", "", "Acme|Acero"},
        {"an empty list never shows the drop-down", "", "t", "t", "", ""},
        {"the drop-down alone leaves the keys as typed", "Tramontano|Tornimax|Acme", "t", "t", "",
         "Tramontano|Tornimax", false},
        {"inline completion alone shows no list", "Tramontano", "tram", "tramontano", "ontano", "", true,
         false},
    };
    for (const auto &c : casos) {
        AutoComplete completion;
        completion.AddItems(QString::fromUtf8(c.items).split(u'|', Qt::SkipEmptyParts));
        completion.setInlineCompletion(c.en_linea);
        completion.setUseDropDownList(c.lista);
        teclear(completion, QString::fromUtf8(c.teclas));
        EXPECT_EQ(completion.Text(), QString::fromUtf8(c.texto)) << c.caso;
        EXPECT_EQ(completion.Text().mid(completion.SelStart(), completion.SelLength()),
                  QString::fromUtf8(c.seleccion))
            << c.caso;
        EXPECT_EQ(completion.ListVisible() ? completion.ListRows().join(u'|') : QString(),
                  QString::fromUtf8(c.filas))
            << c.caso;
    }
}

TEST(AutoComplete, AnEmptyListNeverShowsTheDropDown)
{
    AutoComplete completion;
    completion.ShowList();
    EXPECT_FALSE(completion.ListVisible());
    completion.AddItem(QStringLiteral("Acme"));
    completion.ShowList();
    EXPECT_TRUE(completion.ListVisible());
    completion.Cleartems();
    completion.ShowList();
    EXPECT_FALSE(completion.ListVisible());
}

TEST(AutoComplete, AnEditOutsideTheCompletionDropsTheSuggestion)
{
    AutoComplete completion;
    completion.AddItems({QStringLiteral("Tramontano"), QStringLiteral("Tornillo")});
    teclear(completion, QStringLiteral("t"));
    // The box went back to "tr" by other means: "a" is looked up, not taken
    // as the next letter of the old suggestion.
    completion.Change(QStringLiteral("tr"), 2, 0);
    teclear(completion, QStringLiteral("a"));
    EXPECT_EQ(completion.Text(), QStringLiteral("tramontano"));
    EXPECT_EQ(completion.SelLength(), 7);
}

TEST(AutoComplete, LeavingABoxKeptToItsListRefusesOtherTexts)
{
    const struct {
        const char *texto;
        bool limitar;
        const char *rechazo;
    } casos[] = {
        {"acme", true, ""}, {"Acm", true, "Item not in list!"},     {"", true, ""}, {"d'angelo", true, ""},
        {"Acm", false, ""}, {"ACME SA", true, "Item not in list!"},
    };
    for (const auto &c : casos) {
        AutoComplete completion;
        completion.AddItems({QStringLiteral("Acme"), QStringLiteral("D'Angelo")});
        completion.setLimitToList(c.limitar);
        const QString texto = QString::fromUtf8(c.texto);
        completion.Change(texto, static_cast<int>(texto.size()), 0);
        EXPECT_EQ(completion.Validate().value_or(QString()), QString::fromUtf8(c.rechazo)) << c.texto;
    }
}
