#include "GridModel.h"
#include "FormFixture.h"

#include <QSignalSpy>

namespace strutwright {
namespace {

/// A grid of four rows and three columns, headers included.
class GridModelTest : public testing::Test {
 protected:
  GridModelTest() {
    EnsureApplication();
    grid.SetRowCount(4);
    grid.SetColumnCount(3);
    QCoreApplication::processEvents();
  }

  Grid grid;
  GridModel model{grid};
  QSignalSpy cells{&model, &QAbstractItemModel::dataChanged};
  QSignalSpy headers{&model, &QAbstractItemModel::headerDataChanged};
};

TEST_F(GridModelTest, ReportsManyTextsOnceWhenItWaitsForEvents) {
  grid.SetText(1, 2, "a");
  grid.SetText(3, 1, "b");
  EXPECT_EQ(cells.count(), 0);
  QCoreApplication::processEvents();
  ASSERT_EQ(cells.count(), 1);
  EXPECT_EQ(cells[0][0].toModelIndex(), model.index(0, 0));
  EXPECT_EQ(cells[0][1].toModelIndex(), model.index(2, 1));
  EXPECT_EQ(headers.count(), 0);
}

TEST_F(GridModelTest, ShowsATextBeforeItTellsOfIt) {
  grid.SetText(1, 2, "a");
  EXPECT_EQ(model.data(model.index(0, 1), Qt::DisplayRole).toString(), "a");
}

TEST_F(GridModelTest, ReportsHeaders) {
  grid.SetText(2, 0, "row");
  grid.SetText(3, 0, "row");
  QCoreApplication::processEvents();
  EXPECT_EQ(headers.takeFirst(), (QVariantList{QVariant::fromValue(Qt::Vertical), 1, 2}));
  grid.SetText(0, 2, "column");
  QCoreApplication::processEvents();
  EXPECT_EQ(headers.takeFirst(), (QVariantList{QVariant::fromValue(Qt::Horizontal), 1, 1}));
  EXPECT_TRUE(headers.isEmpty());
  EXPECT_EQ(cells.count(), 0);
}

TEST_F(GridModelTest, ReportsCellsAndHeadersAtOnce) {
  grid.SetText(0, 1, "column");
  grid.SetText(2, 0, "row");
  grid.SetText(2, 2, "a");
  QCoreApplication::processEvents();
  EXPECT_EQ(headers.count(), 2);
  ASSERT_EQ(cells.count(), 1);
  EXPECT_EQ(cells[0][1].toModelIndex(), model.index(1, 1));
}

TEST_F(GridModelTest, DoesNotTellOfRowsThatHaveGone) {
  grid.SetText(3, 1, "a");
  grid.SetRowCount(3);
  QCoreApplication::processEvents();
  EXPECT_EQ(cells.count(), 0);
  grid.SetText(1, 1, "a");
  grid.SetRowCount(1);
  QCoreApplication::processEvents();
  EXPECT_EQ(cells.count(), 0);
}

} // namespace
} // namespace strutwright
