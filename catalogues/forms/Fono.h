// TFoNoForm: the FoNo magistral formulary ("FoNo"): the alphabetical name list (a name list: typing
// filters it), the chapter tree, and the chosen item's text with its title and labels in colour.
#pragma once

#include <QWidget>
#include <memory>
#include <string>

#include "views/forms/kit/MagistralHandover.h"

namespace rovanel
{
struct SharedState;
struct FonoCatalogue;
}  // namespace rovanel

class QTextEdit;
class QTreeWidget;

namespace rovanel::forms
{
class NameList;
}

class TFoNoForm : public QWidget, public rovanel::forms::MagistralHandover
{
    Q_OBJECT
public:
    explicit TFoNoForm(rovanel::SharedState& state, QWidget* parent = nullptr);
    ~TFoNoForm() override;

    // FoNoName: the name line of the item shown last (Windows-1250).
    [[nodiscard]] const std::string& FoNoName() const { return m_name; }

public slots:
    void FoNoLstSelect();
    void FoNoTreeChange();

private:
    void FormCreate();
    void showItem(int item);

    rovanel::SharedState& m_state;
    std::unique_ptr<rovanel::FonoCatalogue> m_catalogue;
    std::string m_name;
    QTreeWidget* m_tree = nullptr;
    rovanel::forms::NameList* m_names = nullptr;
    QTextEdit* m_text = nullptr;
};
