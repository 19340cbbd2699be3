// TBnoForm: the BNO code browser ("Bno kereső"). The physician looks up diagnosis codes in the BNO tree,
// searches it by text one hit at a time or as a list, and copies the list to the clipboard.
#pragma once

#include <QWidget>
#include <filesystem>
#include <vector>

#include "db/TreeFile.h"

class QCheckBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QTreeWidget;

class TBnoForm : public QWidget
{
    Q_OBJECT
public:
    // The tree is read from `dataDirectory` at the first showing of the run.
    explicit TBnoForm(std::filesystem::path dataDirectory, QWidget* parent = nullptr);

    // Handlers, named as the form's events.
    void FormShow();
    void BnoKeresClick();
    void BnoNextClick();
    void FoundBnoLstDblClick(int row);
    void BnoCollapseClick();
    void CopyToClipboardClick();

    // How many times the tree file was loaded into the window (once per run).
    [[nodiscard]] int treeLoads() const { return m_treeLoads; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void selectNode(std::size_t index);
    [[nodiscard]] bool listMode() const;

    std::filesystem::path m_dataDirectory;
    std::vector<rovanel::TreeNode> m_nodes;
    int m_treeLoads = 0;

    QLineEdit* BnoEdt = nullptr;
    QTreeWidget* BnoTree = nullptr;
    QPushButton* BnoKeres = nullptr;
    QPushButton* BnoNext = nullptr;
    QCheckBox* aAChb = nullptr;
    QRadioButton* m_inTree = nullptr;
    QRadioButton* m_inList = nullptr;
    QListWidget* FoundBnoLst = nullptr;
    QPushButton* BnoCollapse = nullptr;
    QPushButton* CopyToClipboard = nullptr;
};
