#include "screens/lists/search_completion.h"

#include "core/settings_read.h"
#include "widgets/autocomplete.h"

namespace vendrix {

bool aplicar_ajustes_completado(widgets::AutoComplete &completion, const Settings &config)
{
    const QStringList on = leer_parametros(
        config, {QStringLiteral("busqueda_autocompletar"), QStringLiteral("busqueda_sugerencias")});
    completion.setInlineCompletion(on.value(0) == QLatin1String("1"));
    completion.setUseDropDownList(on.value(1) == QLatin1String("1"));
    return completion.InlineCompletion() || completion.UseDropDownList();
}

} // namespace vendrix
