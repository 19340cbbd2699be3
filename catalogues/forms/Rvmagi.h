// TMagiForm: the physician's own magistral recipes ("Saját Magi receptek"): a named list of free-text
// recipes, added, changed and deleted here and kept in MagiList.txt and one file per recipe.
// MagiList is the name box: a name list whose edit line holds the recipe's name and filters the names
// as one types.
#pragma once

#include <QWidget>
#include <memory>
#include <optional>

#include "db/Message.h"
#include "views/forms/kit/MagistralHandover.h"

namespace rovanel
{
struct SharedState;
class MagiStore;
}  // namespace rovanel

class QPlainTextEdit;

namespace rovanel::forms
{
class NameList;
}

class TMagiForm : public QWidget, public rovanel::forms::MagistralHandover
{
    Q_OBJECT
public:
    explicit TMagiForm(rovanel::SharedState& state, QWidget* parent = nullptr);
    ~TMagiForm() override;

public slots:
    void MagiListChange();
    void MagiAddClick();
    void MagiDelClick();
    void MagiModClick();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void FormCreate();
    void fillNames();
    [[nodiscard]] std::string name() const;
    // The list item the name box shows, -1 when its text is typed rather than picked.
    [[nodiscard]] int selectedItem() const;
    void tell(const std::optional<rovanel::Message>& message);

    rovanel::SharedState& m_state;
    std::unique_ptr<rovanel::MagiStore> m_store;
    std::optional<rovanel::Message> m_openMessage;  // shown at the first showing
    rovanel::forms::NameList* m_names = nullptr;
    QPlainTextEdit* m_text = nullptr;
};
