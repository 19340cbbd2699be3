// TRp: the prescription window ("Recept"). Writes one prescription for one package: the patient's and the
// prescriber's data from the patient data file, the legal title and its BNO rules, the quantity in figures
// and in Latin, the dosage text, an on-screen preview; saves the drug into the patient's history. The
// drug list window opens it for the package under its cursor; the permanent-drug list fills it from the
// patient's permanent drugs; the medical aids, FoNo and own magistral windows add their item.
#pragma once

#include <QWidget>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "certs/SpecialistRecommendation.h"
#include "db/TreeFile.h"
#include "rx/PackageData.h"
#include "rx/Prescription.h"
#include "rx/RxPrintLayout.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QScrollArea;
class QSpinBox;
class QTextEdit;
class QTreeWidget;

namespace rovanel
{
struct SharedState;
class RegistryStore;
}  // namespace rovanel

class TRp : public QWidget
{
    Q_OBJECT
public:
    // `dataDirectory` holds the database; the patient data file and the user's dosage list are found from
    // it and from the user's settings folder unless set below.
    TRp(rovanel::SharedState& state, std::filesystem::path dataDirectory, QWidget* parent = nullptr);

    // Set by the window that opens the prescription, before it shows it: 0 own magistral list, 1 FoNo
    // formulary, 2 medical aids, 3 drug list or detailed price list.
    void setSource(int source) { m_prescription.source = source; }
    [[nodiscard]] int source() const { return m_prescription.source; }

    // Set-up for package `record` (the drug list's cursor); -1 = the cursor stands on no package, which is
    // refused with its message. True when the window was set up and shown.
    bool openForPackage(std::int32_t record);

    // The item-adding operation of the medical aids, FoNo and own magistral windows: a drug line with its
    // name, text (dosage) and product code ("999999999" for a magistral item). Sets the window up as
    // openForPackage does, without a package of the database.
    void addItem(const std::string& name, const std::string& text, const std::string& productCode);

    // The list-filling operation of the permanent drugs ("Állandó gyógyszerek listája", "-a"): reads the
    // patient data file and shows the window with the permanent drugs listed.
    void showPermanentDrugs(bool setPermanentListMode);
    [[nodiscard]] int listMode() const { return m_listMode; }

    // The prescription as the controls hold it (for printing and tests).
    [[nodiscard]] rovanel::Prescription prescription() const;

    // Files; tests point them into scratch folders.
    void setPatientDataPath(std::filesystem::path path) { m_patientIni = std::move(path); }
    void setDosageListPath(std::filesystem::path path) { m_dosageList = std::move(path); }
    // The user's settings: the format, the print mode and the margins are read from them at once; without
    // them the defaults hold.
    void setRegistry(rovanel::RegistryStore* registry);
    // What "Szakorvosi javaslat" (RpSzakJav) opens: the specialist recommendation window's fill. Without
    // one the button is disabled.
    using RecommendationOpener = std::function<void(const rovanel::RecommendationHandover&)>;
    void setRecommendationOpener(RecommendationOpener opener);
    // The hand-over RpSzakJav gives: the BNO code, the package's support designation ("90%  EU13/b") as
    // the title text, the ATC code of the package (the first eight characters of its product code) and
    // the patient's data as the controls hold them.
    [[nodiscard]] rovanel::RecommendationHandover recommendationHandover() const;
    // Today as YYYYMMDD for FelirDat (tests fix it).
    void setToday(std::string date) { m_today = std::move(date); }

    // Handlers, named as the form's events.
    void FormShow();
    void GyChLstClick(int row);
    void BetegSzulDatChange();
    void MennyisegChange();
    void JogcimGrpClick(int index);
    void BnoKodokClick();
    void BnoEuLstRightClick();
    void RpSaveOnlyClick();
    void RpPrintClick();
    void RpPdfClick();
    void RpFormatClick(int index);
    void PrintModeGrpClick(int index);
    void SaveNewMarginsClick();
    void RpSzakJavClick();
    void RpDsListChange();
    void DsAdClick();
    void DsTorolClick();
    void BnoKeresClick();
    void BnoNextClick();
    void BnoCollapseClick();
    void BnoTreeDblClick();
    void refreshPreview();

protected:
    void showEvent(QShowEvent* event) override;
    // F11 in NaploSzam shows or hides the margin panel.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildControls();
    void setUp();
    void readPatientData();
    void relabel(const rovanel::TitleCaptions& captions);
    [[nodiscard]] rovanel::TitleCaptions captions() const;
    [[nodiscard]] int chosenTitle() const;
    void setTitle(int index);
    void showBnoBrowser(bool shown);
    void loadBnoTree();
    [[nodiscard]] bool checkAndSave();
    void showMargins();
    // Keeps the window at least as wide as its columns need, so that only the height ever scrolls.
    void fitScrollWidth();

    rovanel::SharedState& m_state;
    std::filesystem::path m_dataDirectory;
    std::filesystem::path m_patientIni;
    std::filesystem::path m_dosageList;
    std::string m_today;
    bool m_shown = false;
    int m_listMode = 0;
    rovanel::Prescription m_prescription;  // the parts no control holds: source, keys, item key and code
    rovanel::PackageData m_package;        // days per package, designation, specialist flag
    std::vector<std::string> m_qualifications;
    std::optional<std::vector<rovanel::TreeNode>> m_bnoNodes;
    bool m_treeFilled = false;
    rovanel::RxPrintSettings m_printSettings;
    rovanel::RegistryStore* m_registry = nullptr;
    RecommendationOpener m_openRecommendation;

    QLineEdit* BetegNev = nullptr;
    QLineEdit* BetegCim1 = nullptr;
    QLineEdit* BetegCim2 = nullptr;
    QLineEdit* BetegSzulDat = nullptr;
    QLineEdit* BetegKora = nullptr;
    QLineEdit* BetegENY = nullptr;
    QLineEdit* BetegEU = nullptr;
    QLineEdit* BetegTAJ = nullptr;
    QLineEdit* BetegBNO = nullptr;
    QLineEdit* VenyNo = nullptr;
    QLineEdit* FelirDat = nullptr;
    QLineEdit* EuRendEdt = nullptr;
    QPushButton* BnoKodok = nullptr;
    QGroupBox* JogcimGrp = nullptr;
    std::vector<QRadioButton*> m_titles;
    QGroupBox* KiszertipGrp = nullptr;
    std::vector<QRadioButton*> m_packageForms;
    QLineEdit* Mennyiseg = nullptr;
    QLineEdit* MennyisegLatinul = nullptr;
    QLineEdit* GyogyszerNev = nullptr;
    QPlainTextEdit* GyogyszerDs = nullptr;
    QComboBox* RpDsList = nullptr;
    QPushButton* DsAd = nullptr;
    QPushButton* DsTorol = nullptr;
    QCheckBox* Masolat = nullptr;
    QCheckBox* NemHelyett = nullptr;
    QListWidget* GyChLst = nullptr;
    QLineEdit* SzoAzon = nullptr;
    QLineEdit* NaploSzam = nullptr;
    QLineEdit* SzoJavDatum = nullptr;
    QPlainTextEdit* RpE = nullptr;
    QTextEdit* RpPreview = nullptr;
    QPushButton* RpSaveOnly = nullptr;
    QPushButton* RpPrint = nullptr;
    QPushButton* RpPdf = nullptr;
    QGroupBox* RpFormat = nullptr;
    std::vector<QRadioButton*> m_formats;
    QGroupBox* PrintModeGrp = nullptr;
    std::vector<QRadioButton*> m_printModes;
    QPushButton* RpSzakJav = nullptr;
    QWidget* RpMarginPanel = nullptr;
    QSpinBox* LeftAlloRegi = nullptr;
    QSpinBox* TopAlloRegi = nullptr;
    QSpinBox* LeftAllo = nullptr;
    QSpinBox* TopAllo = nullptr;
    QSpinBox* LeftFekvo = nullptr;
    QSpinBox* TopFekvo = nullptr;
    QPushButton* SaveNewMargins = nullptr;
    QScrollArea* m_scroll = nullptr;
    QWidget* RpPanel = nullptr;
    QWidget* BnoPanel = nullptr;
    QListWidget* BnoEuLst = nullptr;
    QLabel* MsgLabel = nullptr;
    QTreeWidget* BnoTree = nullptr;
    QLineEdit* BnoEdt = nullptr;
    QPushButton* BnoKeres = nullptr;
    QPushButton* BnoNext = nullptr;
    QPushButton* BnoCollapse = nullptr;
};
