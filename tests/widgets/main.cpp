// Widget tests need one QApplication for the whole run, made before any test.
#include "support/widget_test_main.h"

int main(int argc, char **argv)
{
    return vendrix::test::ejecutar_pruebas_con_ventanas(argc, argv);
}
