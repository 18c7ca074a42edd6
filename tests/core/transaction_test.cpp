#include "support/qt_print.h"
#include "support/test_context.h"

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

class TransactionTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        app.copy_seed(QStringLiteral("clientes.install"), QStringLiteral("clientes.vdrx"));
    }

    bool insertar(const QString &name)
    {
        return app.db().execNQ(QStringLiteral("INSERT INTO vendrix_clientes (NOMBRE) VALUES (?)"), kShop,
                               {name});
    }
    QStringList nombres()
    {
        QStringList out;
        const Matrix m =
            app.db().execQ_matriz(QStringLiteral("SELECT NOMBRE FROM vendrix_clientes ORDER BY ID"), kShop);
        for (int r = 0; r < m.filas(); ++r)
            out << m.at(0, r);
        return out;
    }

    const QString kShop = QStringLiteral("internal");
    TestApp app{true};
};

TEST_F(TransactionTest, LeavingTheScopeWithoutCommitLeavesNothing)
{
    {
        Transaction tx(app.db(), kShop);
        ASSERT_TRUE(tx.activa());
        ASSERT_TRUE(insertar(QStringLiteral("uno")));
        ASSERT_TRUE(insertar(QStringLiteral("dos")));
        EXPECT_EQ(nombres(), QStringList({"uno", "dos"})); // seen inside
    }
    EXPECT_TRUE(nombres().isEmpty());
    EXPECT_TRUE(app.op.empty());
    EXPECT_TRUE(app.log_lines().isEmpty());
}

TEST_F(TransactionTest, CommittedWritesStayAndSurviveReopening)
{
    {
        Transaction tx(app.db(), kShop);
        ASSERT_TRUE(insertar(QStringLiteral("uno")));
        EXPECT_TRUE(tx.commit());
        EXPECT_FALSE(tx.activa());
        EXPECT_FALSE(tx.commit());
    }
    app.db().cerrar();
    EXPECT_EQ(nombres(), QStringList{"uno"});
}

TEST_F(TransactionTest, NestedTransactionUndoesOnlyItsOwnPart)
{
    Transaction outer(app.db(), kShop);
    ASSERT_TRUE(insertar(QStringLiteral("fuera")));
    {
        Transaction inner(app.db(), kShop);
        ASSERT_TRUE(inner.activa());
        ASSERT_TRUE(insertar(QStringLiteral("dentro")));
    }
    {
        Transaction inner(app.db(), kShop);
        ASSERT_TRUE(insertar(QStringLiteral("guardado")));
        ASSERT_TRUE(inner.commit());
    }
    ASSERT_TRUE(outer.commit());
    EXPECT_EQ(nombres(), QStringList({"fuera", "guardado"}));
}

TEST_F(TransactionTest, FailingCommitRollsBack)
{
    {
        Transaction tx(app.db(), kShop);
        ASSERT_TRUE(insertar(QStringLiteral("uno")));
        app.failing_db().fail_nth(1);
        EXPECT_FALSE(tx.commit());
        EXPECT_TRUE(tx.activa());
    }
    EXPECT_TRUE(nombres().isEmpty());
    EXPECT_EQ(app.op.shown.size(), 1u);
    ASSERT_EQ(app.log_messages().size(), 1);
    EXPECT_TRUE(app.log_messages().at(0).startsWith(QStringLiteral("ER EXECNQ - 1 ")));
}

TEST_F(TransactionTest, FailingBeginLeavesItInactive)
{
    app.failing_db().fail_nth(1);
    Transaction tx(app.db(), kShop);
    EXPECT_FALSE(tx.activa());
    EXPECT_FALSE(tx.commit());
}

} // namespace
} // namespace vendrix::test
