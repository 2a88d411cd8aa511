// A grid of 60 rows and 6 columns on the screen, with the cursor in its second cell of the second row.
#pragma once

#include "grid/cell_editor.h"
#include "grid/grid_ctrl.h"
#include "tests/grid/table_source.h"

#include <QApplication>
#include <QTest>

#include <memory>

namespace sbd::test {

using namespace Qt::StringLiterals;

class GridBench : public QObject {
protected:
    void PutGrid()
    {
        source_ = std::make_unique<CTableSource>(60, 6);
        for (int row = 1; row <= 5; ++row)
            for (int column = 1; column <= 3; ++column)
                source_->SetText(row, column, u"%1%2"_s.arg(QChar(u'a' + column - 1)).arg(row));
        source_->words[3] = {u"SM400"_s, u"SM490Y"_s, u"SS400"_s, u"等間隔"_s};
        grid_ = std::make_unique<CGridCtrl>();
        messages_.clear();
        grid_->showMessage = [this](const QString& message) { messages_ << message; };
        grid_->SetSource(source_.get());
        grid_->resize(640, 400);
        grid_->show();
        QVERIFY(QTest::qWaitForWindowActive(grid_.get()));
        grid_->setFocus();
        grid_->SetFocusCell(2, 2);
    }
    void TakeGrid()
    {
        grid_.reset();
        source_.reset();
    }

    std::unique_ptr<CTableSource> source_;
    std::unique_ptr<CGridCtrl> grid_;
    QStringList messages_;

    [[nodiscard]] QWidget* Editor() const
    {
        return grid_->IsEditing() ? grid_->indexWidget(grid_->currentIndex()) : nullptr;
    }
    [[nodiscard]] CCellCombo* Combo() const { return qobject_cast<CCellCombo*>(Editor()); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void Type(const QString& text)
    {
        for (const QChar c : text) // the first key moves the focus to the editor
            QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
    }
    [[nodiscard]] QString Cell(int row, int column) const
    {
        return source_->cells[std::size_t(row) - 1][std::size_t(column) - 1];
    }
    [[nodiscard]] QPoint Middle(int row, int column) const
    {
        return grid_->visualRect(grid_->model()->index(row - 1, column - 1)).center();
    }
};

} // namespace sbd::test
