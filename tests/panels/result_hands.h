// A result panel on the screen, with the choices at hand.
#pragma once

#include "document/result_session.h"
#include "document/section_doc.h"
#include "grid/grid_ctrl.h"
#include "panels/result_panel.h"
#include "tests/surroundings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <memory>

namespace sbd::test {

using namespace Qt::StringLiterals;

class ResultHands : public QObject {
protected:
    /// Panel and project are gone.
    void TakePanel()
    {
        Close();
        doc_.reset();
    }

    std::unique_ptr<CKELDSectionDoc> doc_;
    std::unique_ptr<CDown253> panel_;

    void OpenProject(const char* name)
    {
        Close();
        doc_ = std::make_unique<CKELDSectionDoc>();
        const QString path = QString::fromUtf8(test::ExamplesFolder()) + u"/%1/%1.sbd"_s.arg(QString::fromLatin1(name));
        QVERIFY(doc_->OpenDocument(path).Ok());
        Open();
    }
    void Open()
    {
        panel_ = std::make_unique<CDown253>(doc_.get());
        panel_->resize(1200, 330);
        panel_->show();
        QVERIFY(QTest::qWaitForWindowExposed(panel_.get()));
    }
    void Close()
    {
        if (panel_ != nullptr)
            panel_->ClosePanel();
        panel_.reset();
    }
    [[nodiscard]] ResultSelection& Selection() const { return ResultSessionOf(*doc_).selection; }
    [[nodiscard]] QComboBox* Box(int index) const { return panel_->findChildren<QComboBox*>()[index]; }
    [[nodiscard]] QComboBox* Kind() const { return Box(0); }
    [[nodiscard]] QComboBox* Load() const { return Box(1); }
    [[nodiscard]] QComboBox* Girder() const { return Box(2); }
    [[nodiscard]] QComboBox* Station() const { return Box(3); }
    [[nodiscard]] QComboBox* Item() const { return Box(4); }
    [[nodiscard]] QListView* Excluded() const
    {
        const auto lists = panel_->findChildren<QListView*>();
        const auto own = std::ranges::find_if(lists, [](const QListView* list) {
            return list->selectionMode() == QAbstractItemView::MultiSelection && list->objectName().isEmpty();
        });
        return *own;
    }
    [[nodiscard]] QList<QCheckBox*> Columns() const
    {
        return panel_->findChild<QGroupBox*>(u"columns"_s)->findChildren<QCheckBox*>();
    }
    [[nodiscard]] QString Cell(int row, int column) const { return panel_->Grid()->Source()->Text(row, column); }
    template <typename Widget>
    [[nodiscard]] Widget* Named(const QString& name) const
    {
        const auto all = panel_->findChildren<Widget*>();
        const auto found = std::ranges::find(all, name, &QWidget::accessibleName);
        return found == all.end() ? nullptr : *found;
    }
    [[nodiscard]] QPushButton* Button(const QString& text) const
    {
        const auto all = panel_->findChildren<QPushButton*>();
        const auto found = std::ranges::find(all, text, &QPushButton::text);
        return found == all.end() ? nullptr : *found;
    }
    void Choose(QComboBox* box, const QString& text)
    {
        const int index = box->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
        QVERIFY2(index >= 0, qPrintable(text));
        box->setCurrentIndex(index);
    }
};

} // namespace sbd::test
