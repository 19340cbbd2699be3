// TSegedeszk: the medical aids catalogue ("Gyógyászati segédeszközök"). The group tree, searched by its
// nodes' texts or by the aids' names; the aids of a group; one aid's description with its price,
// supports, quantities, wearing periods and the notes of its group.
#pragma once

#include <QWidget>
#include <memory>

namespace rovanel
{
struct SharedState;
struct AidCatalogue;
}  // namespace rovanel

class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QTreeWidget;

class TSegedeszk : public QWidget
{
    Q_OBJECT
public:
    explicit TSegedeszk(rovanel::SharedState& state, QWidget* parent = nullptr);
    ~TSegedeszk() override;

public slots:
    void SeTreeCollapseClick();
    void SeTreeExpandClick();
    void SeKeresClick();
    void SeNextClick();
    void SeNevKeresClick();
    void FoundSeLstClick();
    void SeListazClick();
    void SeListClick();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void FormShow();
    void selectNode(int node);

    rovanel::SharedState& m_state;
    std::unique_ptr<rovanel::AidCatalogue> m_catalogue;
    bool m_loaded = false;
    int m_lastHit = -1;     // the tree walk's last hit, where "Fában következő" goes on
    int m_listedNode = -1;  // the group whose aids SeList shows
    QTreeWidget* m_tree = nullptr;
    QLineEdit* m_search = nullptr;
    QPushButton* m_next = nullptr;
    QRadioButton* m_oneByOne = nullptr;
    QListWidget* m_found = nullptr;
    QTreeWidget* m_list = nullptr;
    QPlainTextEdit* m_description = nullptr;
};
