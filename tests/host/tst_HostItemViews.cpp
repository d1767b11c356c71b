#include "PropVariant.h"
#include "QHostActionsItemElement.h"
#include "QHostItemControlDelegate.h"
#include "hostDbPropBagCtx.h"
#include <QMouseEvent>
#include <QStandardItemModel>
#include <QtTest>

using host_qt_ui_core::QHostActionsItemElement;
using host_qt_ui_core::QHostItemControlDelegate;

class TestHostItemViews : public QObject
{
  Q_OBJECT

private slots:
  void actionIconsSitAtTheRightEnd_data()
  {
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<int>("hit");
    QTest::newRow("text part") << QPoint(10, 10) << -1;
    QTest::newRow("first icon") << QPoint(200 - 40 + 5, 10) << 0;
    QTest::newRow("second icon") << QPoint(199, 10) << 1;
    QTest::newRow("below the cell") << QPoint(199, 30) << -1;
  }
  void actionIconsSitAtTheRightEnd()
  {
    QFETCH(QPoint, point);
    QFETCH(int, hit);
    QHostActionsItemElement element;
    element.addAction(QIcon());
    element.addAction(QIcon(), true, true);
    const QRect cell(0, 0, 200, 20);
    QCOMPARE(element.hitAction(cell, QSize(16, 16), point), hit);
    QCOMPARE(element.cropRect(cell, QSize(16, 16)), QRect(0, 0, 160, 20));
    QCOMPARE(element.sizeHint(QSize(50, 10)), QSize(90, 20));
    element.clear();
    QCOMPARE(element.cropRect(cell, QSize(16, 16)), cell);
    QCOMPARE(element.hitAction(cell, QSize(16, 16), point), -1);
  }

  void pinToggleGoesThroughTheModel()
  {
    QStandardItemModel model(2, 1);
    model.setData(model.index(0, 0), false, Qt::UserRole + 2);
    QHostItemControlDelegate delegate(QHostItemControlDelegate::PinToggle, Qt::UserRole + 2);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 200, 20);
    const QPoint onPin = delegate.pinRect(option.rect).center();
    QMouseEvent press(QEvent::MouseButtonPress, onPin, onPin, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, onPin, onPin, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);

    QAbstractItemDelegate& base = delegate;
    QVERIFY(base.editorEvent(&press, &model, option, model.index(0, 0)));
    QCOMPARE(model.index(0, 0).data(Qt::UserRole + 2).toBool(), true);
    QVERIFY(base.editorEvent(&release, &model, option, model.index(0, 0)));
    QCOMPARE(model.index(0, 0).data(Qt::UserRole + 2).toBool(), true);
    // A row without a pin state has no pin.
    QVERIFY(!base.editorEvent(&press, &model, option, model.index(1, 0)));
    QVERIFY(!model.index(1, 0).data(Qt::UserRole + 2).isValid());
  }

  // A bag's plain context answers "no drawing" to the drawing-attribute controls, and translates nothing.
  void databaseContextDefaults()
  {
    hostDbPropBagCtx context;
    PropBagCtxBase other;
    QVERIFY(hostDbPropBagCtx::cast(static_cast<PropBagCtx*>(&context)).get() == &context);
    QVERIFY(!other.isKindOf(hostDbPropBagCtx::desc()));
    QVERIFY(!context.database());
    PropVariant in, out;
    in.setInt32(7);
    bool ok = false;
    QVERIFY(context.translate(0, in, out, &ok) && ok);
    QCOMPARE(out, in);
    QVERIFY(!context.isDisabledValue(0, in));
  }
};

QTEST_MAIN(TestHostItemViews)
#include "tst_HostItemViews.moc"
