#include "stage.h"

namespace tour {

namespace {

constexpr Stage table[] = {
    {u"wizard", Company::New, usual_percent, answer_wizard},
    {u"masters", Company::New, usual_percent, fill_masters},
    {u"month", Company::New, usual_percent, enter_month},
    {u"report", Company::New, usual_percent, print_typed_month},
    {u"leaving", Company::New, usual_percent, leave_program},
    {u"restoring", Company::New, usual_percent, restore_elsewhere},
    {u"menus", Company::Sample, usual_percent, see_menus},
    {u"month", Company::Sample, usual_percent, enter_month},
    {u"low window", Company::Sample, usual_percent, see_low_window},
    {u"reports", Company::Sample, usual_percent, print_reports},
    {u"screens", Company::Sample, usual_percent, see_screens},
    {u"leaving", Company::Sample, usual_percent, leave_program},
    {u"screens", Company::Sample, 200, see_screens},
};

} // namespace

std::span<const Stage> stages() {
    return table;
}

} // namespace tour
