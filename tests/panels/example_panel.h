// A panel of the example plate4 on the screen, with hands.
#pragma once

#include "document/section_doc.h"
#include "grid/grid_ctrl.h"
#include "panels/panel.h"
#include "project/catalogue.h"
#include "tests/surroundings.h"

#include <QApplication>
#include <QTest>

#include <algorithm>
#include <memory>

namespace sbd::test {

using namespace Qt::StringLiterals;

class ExamplePanel : public QObject {
protected:
    std::unique_ptr<CKELDSectionDoc> doc_;
    std::unique_ptr<CPanel> panel_;
    QStringList messages_;
    std::vector<std::pair<int, int>> changes_;

    /// Closes the panel on show, as the block switch does, and opens that of `block`.
    void Open(int block)
    {
        Close();
        panel_ = CreatePanel(doc_.get(), CanonicalBlock(block));
        QVERIFY(panel_ != nullptr);
        panel_->Grid()->showMessage = [this](const QString& message) { messages_ << message; };
        panel_->resize(900, 320);
        panel_->show();
        QVERIFY(QTest::qWaitForWindowActive(panel_.get()));
        panel_->Grid()->setFocus();
    }
    void Close()
    {
        if (panel_ != nullptr)
            panel_->ClosePanel();
        panel_.reset();
    }
    void Focus(int row, int column) { panel_->Grid()->SetFocusCell(row, column); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void Type(const QString& text)
    {
        for (const QChar c : text) // the first key moves the focus to the editor
            QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
    }
    [[nodiscard]] QWidget* Editor() const { return panel_->Grid()->indexWidget(panel_->Grid()->currentIndex()); }
    [[nodiscard]] QString Option(int block, int row) const
    {
        return toQString(doc_->Data().Option(block, std::size_t(row) - 1));
    }
    [[nodiscard]] QString Stored(int block, int row, int column) const
    {
        return toQString(doc_->Data().Table(block)->columns[std::size_t(column) - 1][std::size_t(row) - 1]);
    }
    [[nodiscard]] bool Notified(int block, int row) const
    {
        return std::ranges::find(changes_, std::pair(block, row)) != changes_.end();
    }

    void OpenExample()
    {
        doc_ = std::make_unique<CKELDSectionDoc>();
        QVERIFY(doc_->OpenDocument(QString::fromUtf8(test::ExamplesFolder()) + u"/plate4/plate4.sbd"_s).Ok());
        messages_.clear();
        changes_.clear();
        connect(doc_.get(), &CKELDSectionDoc::changed, this,
                [this](const BlockChange& change) { changes_.emplace_back(change.block, change.row); });
    }
    void CloseExample()
    {
        panel_.reset();
        doc_.reset();
    }
};

} // namespace sbd::test
