// Keeps the forms library non-empty until the first window lands.
namespace rovanel::forms {
int placeholder() { return 0; }
}
