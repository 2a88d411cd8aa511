// A real panel on the screen, block 313 with six rows, and the fingers at it: keys, mouse, clipboard.
#pragma once

#include "document/section_doc.h"
#include "grid/grid_ctrl.h"
#include "panelmodel/panel_model.h"
#include "panels/input_panel.h"
#include "project/catalogue.h"
#include "project/text.h"
#include "tests/document/data_of.h"

#include <QApplication>
#include <QMouseEvent>
#include <QStatusTipEvent>
#include <QTest>

#include <memory>

namespace sbd::test {

using namespace Qt::StringLiterals;

class PanelHands : public QObject {
protected:
    void PutPanel()
    {
        doc_ = std::make_unique<CKELDSectionDoc>();
        CSbdData& data = test::DataOf(*doc_);
        const auto add = [&data](std::initializer_list<const char*> cells) {
            std::vector<std::string> bytes;
            for (const char* cell : cells)
                bytes.push_back(Cp932(cell));
            data.Table(313)->AppendRow({bytes.begin(), bytes.end()});
        };
        add({"自動計算(YES_NO)", "NO"});
        for (const char* station : {"C1", "C2", "C3", "C4", "C5", "C6"})
            add({"G1", "G4", station, "A2", "両面", "110", "9", "2", "1000"});
        messages_.clear();
        Open(313);
    }
    void TakePanel()
    {
        panel_.reset();
        doc_.reset();
    }

    std::unique_ptr<CKELDSectionDoc> doc_;
    std::unique_ptr<CPanel> panel_;
    QStringList messages_;
    QString status_;

    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::StatusTip)
            status_ = static_cast<QStatusTipEvent*>(event)->tip();
        return QObject::eventFilter(object, event);
    }

    void Open(int block)
    {
        if (panel_ != nullptr)
            panel_->ClosePanel();
        panel_ = CreatePanel(doc_.get(), CanonicalBlock(block));
        QVERIFY(panel_ != nullptr);
        panel_->installEventFilter(this);
        Grid().showMessage = [this](const QString& message) { messages_ << message; };
        panel_->resize(1000, 420);
        panel_->show();
        QVERIFY(QTest::qWaitForWindowActive(panel_.get()));
        Grid().setFocus();
    }
    [[nodiscard]] CGridCtrl& Grid() const { return *panel_->Grid(); }
    [[nodiscard]] CInputPanel& Input() const { return static_cast<CInputPanel&>(*panel_); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void Type(const QString& text)
    {
        for (const QChar c : text)
            QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
    }
    void Select(int top, int left, int bottom, int right)
    {
        Grid().SetFocusCell(top, left);
        for (int row = top; row < bottom; ++row)
            Key(Qt::Key_Down, Qt::ShiftModifier);
        for (int column = left; column < right; ++column)
            Key(Qt::Key_Right, Qt::ShiftModifier);
    }
    [[nodiscard]] QString Cell(int row, int column) const { return Grid().Source()->Text(row, column); }
    [[nodiscard]] QStringList Column(int top, int column, int bottom) const
    {
        QStringList cells;
        for (int row = top; row <= bottom; ++row)
            cells << Cell(row, column);
        return cells;
    }
    [[nodiscard]] QString Stored(int row, int column) const
    {
        return toQString(doc_->Data().Table(313)->columns[std::size_t(column) - 1][std::size_t(row) - 1]);
    }
    [[nodiscard]] int StoredRows() const { return int(doc_->Data().Table(313)->RowCount()); }
    [[nodiscard]] QPoint Middle(int row, int column) const
    {
        return Grid().visualRect(Grid().model()->index(row - 1, column - 1)).center();
    }
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget* cells = Grid().viewport();
        QTest::mousePress(cells, Qt::LeftButton, {}, from);
        for (const QPoint& pos : {(from + to) / 2, to}) {
            QMouseEvent move(QEvent::MouseMove, pos, cells->mapToGlobal(pos), Qt::NoButton, Qt::LeftButton, modifiers);
            QApplication::sendEvent(cells, &move);
        }
        QTest::mouseRelease(cells, Qt::LeftButton, modifiers, to);
    }
    /// One undo takes the command back, one redo makes it again.
    void IsOneStep(const QStringList& before, int top, int column, int bottom)
    {
        const QStringList after = Column(top, column, bottom);
        QVERIFY(after != before);
        doc_->Undo();
        QCOMPARE(Column(top, column, bottom), before);
        doc_->Redo();
        QCOMPARE(Column(top, column, bottom), after);
    }
};

} // namespace sbd::test
