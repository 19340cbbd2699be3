// TRefForm: the detailed list ("Részletes lista"). For one ATC group, picked in the ATC tree, by a text
// or code search or through a product's name, every package with its full price, the three kinds of
// support, the payable amounts and daily costs; sortable by any column, with the fixed-group listings,
// the public-care list and the product's description a double click away. The work is the core's
// DetailedList; this window shows it.
#pragma once

#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "db/TreeFile.h"
#include "pricelist/ColumnWidths.h"
#include "pricelist/DetailedList.h"
#include "views/forms/kit/Lists.h"
#include "views/forms/kit/Text.h"

class QCheckBox;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableView;
class QTreeWidget;
class QTreeWidgetItem;
class RefListModel;

namespace rovanel::forms
{
class NameList;
}

namespace rovanel
{
struct SharedState;
class RegistryStore;
}  // namespace rovanel

class TRefForm : public QWidget
{
    Q_OBJECT
public:
    TRefForm(rovanel::SharedState& state, rovanel::RegistryStore& registry, QWidget* parent = nullptr);
    ~TRefForm() override;

    // The shared description window that a double click on a row opens.
    void setDescriptionViewer(rovanel::forms::DescriptionViewer viewer)
    {
        m_showDescription = std::move(viewer);
    }

    [[nodiscard]] const rovanel::DetailedList& list() const { return m_list; }
    [[nodiscard]] const rovanel::ColumnWidths& columnWidths() const { return m_widths; }

    // Handlers, named as the form's events.
    void bFillSameAtc(const std::string& code, rovanel::ListingMode mode);
    void AtcTreeDblClick();
    void RefLstDblClick();
    void GylistClick(int index);
    void GyTapRbClick();
    void RefLstColumnClick(int column);
    void AtcTxtKeresClick();
    void AtcTxtNextClick();
    void AtcTxtEdtChange();
    void AtcKodKeresClick();
    void ShowAtcListClick();
    void KgyAddClick();
    void SaveColWidthClick();
    void DefColWidthClick();
    void TfxClick(rovanel::SupportKind kind);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void FormShow();
    void loadTree();
    void fillNames();
    void selectNode(int node);
    void treeTextHit(int node);
    void showOutcome(const rovanel::FillOutcome& outcome);
    void applyWidths();
    [[nodiscard]] int selectedRow() const;

    rovanel::SharedState& m_state;
    rovanel::RegistryStore& m_registry;
    rovanel::DetailedList m_list;
    rovanel::ColumnWidths m_widths;
    rovanel::forms::DescriptionViewer m_showDescription;
    std::vector<rovanel::TreeNode> m_nodes;     // atcnren2.dat, node i = ATC code slot i
    std::vector<QTreeWidgetItem*> m_treeItems;  // the same nodes as items
    bool m_shown = false;
    bool m_applyingWidths = false;
    int m_textHit = 0;  // position of the last text-search hit plus one; 0 = no search under way

    RefListModel* m_model = nullptr;
    QTableView* RefLst = nullptr;
    rovanel::forms::NameList* Gylist = nullptr;
    QGroupBox* GyTapRb = nullptr;
    QRadioButton* m_drugs = nullptr;
    QRadioButton* m_nutrition = nullptr;
    QTreeWidget* AtcTree = nullptr;
    QLineEdit* AtcTxtEdt = nullptr;
    QPushButton* AtcTxtNext = nullptr;
    QLineEdit* AtcKodEdt = nullptr;
    QCheckBox* ShowAtcList = nullptr;
    QPushButton* m_tfx[3] = {nullptr, nullptr, nullptr};
};
