#include "xml/enumerations.h"

#include "xml/ZQXMLTagHash.h"

namespace {

// 1: menu type, refresh, file location and data dictionary words.
constexpr EnumWord kMenuWords[] = {
    {tag_databaseName, 0},       {tag_characterMenu, 1}, {tag_localName, 1},
    {tag_onFormConnect, 1},      {tag_server, 1},        {tag_client, 2},
    {tag_identifier, 2},         {tag_onFormOpen, 2},    {tag_queryMenu, 2},
    {tag_every15Minutes, 3},     {tag_fileMenu, 3},      {tag_sqlMenu, 4},
    {tag_dataDictionaryMenu, 6},
};

// 2: every "true" or "false" element of definition objects.
constexpr EnumWord kBooleanWords[] = {
    {tag_false, 0},
    {tag_true, 1},
};

// 3: arithmetic and relational operators.
constexpr EnumWord kOperationWords[] = {
    {tag_add, 1},          {tag_equal, 1},    {tag_greater, 2}, {tag_subtract, 2},
    {tag_greaterEqual, 3}, {tag_multiply, 3}, {tag_divide, 4},  {tag_less, 4},
    {tag_lessEqual, 5},    {tag_modulo, 5},   {tag_negate, 6},  {tag_notEqual, 6},
    {tag_like, 7},         {tag_in, 8},
};

// 4: status history part: user or time.
constexpr EnumWord kStatusTagWords[] = {
    {tag_user, 1},
    {tag_time, 2},
};

// 5: multi-match of a query value.
constexpr EnumWord kQueryMultiWords[] = {
    {tag_error, 1},
    {tag_first, 2},
    {tag_set, 3},
};

// 8: type of a byte list value.
constexpr EnumWord kByteListTypeWords[] = {
    {tag_userDefined, 0},   {tag_windowsBitmap, 1},
    {tag_JPEG, 2},          {tag_TIFF, 3},
    {tag_TARGA, 4},         {tag_PCX, 5},
    {tag_localizedFile, 6}, {tag_authenticationString, 7},
};

// 9: permission entry.
constexpr EnumWord kPermissionWords[] = {
    {tag_none, 0}, {tag_readOnly, 1}, {tag_visible, 1}, {tag_hidden, 2}, {tag_readWrite, 2},
};

// 10: index entry.
constexpr EnumWord kUniqueIndexWords[] = {
    {tag_false, 0},
    {tag_true, 1},
};

// 11: sort entry.
constexpr EnumWord kSortOrderWords[] = {
    {tag_ascending, 1},
    {tag_descending, 2},
};

// 12: view list.
constexpr EnumWord kVuiTypeWords[] = {
    {tag_none, 0}, {tag_windows, 1}, {tag_web, 2}, {tag_webFixedPosition, 3}, {tag_wireless, 4},
};

// 13: field: data type, option, create mode, field type.
constexpr EnumWord kFieldWords[] = {
    {tag_none, 0},        {tag_open, 1},          {tag_regular, 1},     {tag_required, 1},
    {tag_integer, 2},     {tag_join, 2},          {tag_optional, 2},    {tag_protected, 2},
    {tag_real, 3},        {tag_system, 3},        {tag_view, 3},        {tag_character, 4},
    {tag_displayOnly, 4}, {tag_vendor, 4},        {tag_diary, 5},       {tag_enumeration, 6},
    {tag_dateTime, 7},    {tag_bitmask, 8},       {tag_bytes, 9},       {tag_decimal, 10},
    {tag_attachment, 11}, {tag_currency, 12},     {tag_date, 13},       {tag_timeOfDayValue, 14},
    {tag_joinField, 30},  {tag_trim, 31},         {tag_control, 32},    {tag_table, 33},
    {tag_column, 34},     {tag_page, 35},         {tag_pageHolder, 36}, {tag_attachmentPool, 37},
    {tag_viewField, 42},  {tag_displayField, 43},
};

// 14: limit records of a field.
constexpr EnumWord kFieldLimitWords[] = {
    {tag_dataField, 0},    {tag_none, 0},      {tag_anyMatch, 1},      {tag_append, 1},
    {tag_displayField, 1}, {tag_embeded, 1},   {tag_indexed, 1},       {tag_leadingMatch, 2},
    {tag_link, 2},         {tag_overwrite, 2}, {tag_equalityMatch, 3},
};

// 15: no-match option of an assignment.
constexpr EnumWord kNoMatchWords[] = {
    {tag_error, 1},
    {tag_setNull, 2},
    {tag_noAction, 3},
    {tag_submit, 4},
};

// 16: multiple-match option of an assignment.
constexpr EnumWord kMultiMatchWords[] = {
    {tag_error, 1},           {tag_setNull, 2},   {tag_useFirstMatch, 3},
    {tag_displayPickList, 4}, {tag_modifyAll, 5}, {tag_noAction, 6},
};

// 17: function of an assignment.
constexpr EnumWord kFunctionWords[] = {
    {tag_date, 1},
    {tag_time, 2},
    {tag_month, 3},
    {tag_day, 4},
    {tag_year, 5},
    {tag_workday, 6},
    {tag_hour, 7},
    {tag_minute, 8},
    {tag_second, 9},
    {tag_truncate, 10},
    {tag_round, 11},
    {tag_convert, 12},
    {tag_length, 13},
    {tag_upper, 14},
    {tag_lower, 15},
    {tag_substring, 16},
    {tag_left, 17},
    {tag_right, 18},
    {tag_leftTrim, 19},
    {tag_rightTrim, 20},
    {tag_leftPad, 21},
    {tag_rightPad, 22},
    {tag_replace, 23},
    {tag_strstr, 24},
    {tag_min, 25},
    {tag_max, 26},
    {tag_columnSum, 27},
    {tag_columnCount, 28},
    {tag_columnAvg, 29},
    {tag_columnMin, 30},
    {tag_columnMax, 31},
    {tag_dateAdd, 32},
    {tag_dateDiff, 33},
    {tag_dateName, 34},
    {tag_dateNum, 35},
    {tag_currencyConvert, 36},
    {tag_currencySetDate, 37},
    {tag_currencySetType, 38},
    {tag_currencySetValue, 39},
};

// 18: DDE action.
constexpr EnumWord kDdeWords[] = {
    {tag_execute, 1},
    {tag_poke, 2},
    {tag_request, 3},
};

// 20: bits of a filter's execute mask.
constexpr EnumWord kFilterExecuteWords[] = {
    {tag_none, 0},   {tag_getEntry, 1}, {tag_modify, 2}, {tag_submit, 4},
    {tag_delete, 8}, {tag_merge, 16},   {tag_guide, 32},
};

// 21: bits of an active link's execute mask.
constexpr EnumWord kActiveLinkExecuteWords[] = {
    {tag_none, 0},
    {tag_button, 1},
    {tag_return, 2},
    {tag_submit, 4},
    {tag_modify, 8},
    {tag_display, 16},
    {tag_modifyAll, 32},
    {tag_menuOpen, 64},
    {tag_menuChoice, 128},
    {tag_loseFocus, 256},
    {tag_setDefault, 512},
    {tag_query, 1024},
    {tag_afterModify, 2048},
    {tag_afterSubmit, 4096},
    {tag_gainFocus, 8192},
    {tag_windowOpen, 16384},
    {tag_windowClose, 32768},
    {tag_undisplay, 65536},
    {tag_copySubmit, 131072},
    {tag_windowLoaded, 262144},
    {tag_onInterval, 524288},
};

// 22: message action of an active link.
constexpr EnumWord kActiveLinkMessageWords[] = {
    {tag_note, 0},
    {tag_warning, 1},
    {tag_error, 2},
    {tag_prompt, 5},
};

// 23: message action of a filter.
constexpr EnumWord kFilterMessageWords[] = {
    {tag_note, 0},
    {tag_warning, 1},
    {tag_error, 2},
};

// 24: open window action.
constexpr EnumWord kWindowModeWords[] = {
    {tag_dialog, 0},
    {tag_search, 1},
    {tag_submit, 2},
    {tag_modifyListOnly, 3},
    {tag_modifyDetailOnly, 4},
    {tag_modifySplitWindow, 5},
    {tag_displayListOnly, 6},
    {tag_displayDetailOnly, 7},
    {tag_displaySplitWindow, 8},
    {tag_report, 9},
};

// 25: notify action.
constexpr EnumWord kNotifyFieldsWords[] = {
    {tag_none, 0},
    {tag_all, 1},
    {tag_selected, 2},
    {tag_changed, 3},
};

// 26: change field action: focus.
constexpr EnumWord kFocusWords[] = {
    {tag_unchanged, 0},
    {tag_setToField, 1},
};

// 27: change field action: access option.
constexpr EnumWord kAccessOptionWords[] = {
    {tag_unchanged, 0},
    {tag_readOnly, 1},
    {tag_readWrite, 2},
    {tag_disabled, 3},
};

// 28: bits of the days of an escalation time.
constexpr EnumWord kDayOfWeekWords[] = {
    {tag_sunday, 1},    {tag_monday, 2},  {tag_tuesday, 4},   {tag_wednesday, 8},
    {tag_thursday, 16}, {tag_friday, 32}, {tag_saturday, 64},
};

// 29: container and the names list.
constexpr EnumWord kContainerTypeWords[] = {
    {tag_activeLinkGuide, 1}, {tag_application, 2}, {tag_packingList, 3},
    {tag_filterGuide, 4},     {tag_webService, 5},
};

// 30: container owner.
constexpr EnumWord kOwnerTypeWords[] = {
    {tag_none, 0},
    {tag_all, 1},
    {tag_form, 2},
};

// 31: container reference.
constexpr EnumWord kReferenceTypeWords[] = {
    {tag_form, 2},       {tag_filter, 3},    {tag_escalation, 4},
    {tag_activeLink, 5}, {tag_container, 6}, {tag_menu, 7},
};

// 32: DSO mapping.
constexpr EnumWord kDsoUpdateWords[] = {
    {tag_immediately, 0}, {tag_hourly, 1}, {tag_daily, 2}, {tag_onReturn, 3}, {tag_noUpdate, 4},
};

// 33: DSO mapping.
constexpr EnumWord kDsoTransferWords[] = {
    {tag_dataOnly, 0},
    {tag_ownership, 1},
    {tag_copy, 2},
    {tag_copyDelete, 3},
};

// 34: DSO mapping.
constexpr EnumWord kDsoDuplicateWords[] = {
    {tag_error, 0},
    {tag_overwrite, 1},
    {tag_createNew, 2},
};

// 35: DSO mapping, both map types.
constexpr EnumWord kDsoMapTypeWords[] = {
    {tag_fieldIDs, 0},
    {tag_custom, 1},
    {tag_fieldNames, 2},
};

// 36: support file type.
constexpr EnumWord kSupportFileWords[] = {
    {tag_none, 0}, {tag_externalReport, 1}, {tag_regular, 1}, {tag_join, 2},
    {tag_view, 3}, {tag_dialog, 4},         {tag_vendor, 5},
};

// 37: join form.
constexpr EnumWord kJoinOptionWords[] = {
    {tag_inner, 0},
    {tag_outer, 1},
};

// 38: no caller in the library; kept in the table.
constexpr EnumWord kFormTypeWords[] = {
    {tag_none, 0}, {tag_regular, 1}, {tag_join, 2}, {tag_view, 3}, {tag_dialog, 4}, {tag_vendor, 5},
};

// 39: data dictionary menu.
constexpr EnumWord kDdNameWords[] = {
    {tag_none, 0},       {tag_identifier, 1},      {tag_name, 2},
    {tag_nameQuotes, 3}, {tag_nameDollarSigns, 4}, {tag_IDName, 5},
    {tag_local, 6},      {tag_localQuotes, 7},     {tag_localDollarSigns, 8},
    {tag_IDLocal, 9},    {tag_nameLocal, 10},      {tag_localName, 11},
};

// 40: data dictionary menu, bits.
constexpr EnumWord kDdFieldWords[] = {
    {tag_data, 1},    {tag_trim, 2},         {tag_control, 4},
    {tag_page, 8},    {tag_pageHolder, 16},  {tag_table, 32},
    {tag_column, 64}, {tag_attachment, 128}, {tag_attachmentPool, 256},
};

// 41: data dictionary menu.
constexpr EnumWord kDdFormWords[] = {
    {tag_all, 0}, {tag_regular, 1}, {tag_join, 2}, {tag_view, 3}, {tag_dialog, 6}, {tag_vendor, 8},
};

// 42: complex entry input.
constexpr EnumWord kMapKindWords[] = {
    {tag_embedded, 1},
    {tag_reference, 2},
};

constexpr std::span<const EnumWord> kTables[] = {
    {},
    kMenuWords,               // 1
    kBooleanWords,            // 2
    kOperationWords,          // 3
    kStatusTagWords,          // 4
    kQueryMultiWords,         // 5
    {},                       // 6
    {},                       // 7
    kByteListTypeWords,       // 8
    kPermissionWords,         // 9
    kUniqueIndexWords,        // 10
    kSortOrderWords,          // 11
    kVuiTypeWords,            // 12
    kFieldWords,              // 13
    kFieldLimitWords,         // 14
    kNoMatchWords,            // 15
    kMultiMatchWords,         // 16
    kFunctionWords,           // 17
    kDdeWords,                // 18
    {},                       // 19
    kFilterExecuteWords,      // 20
    kActiveLinkExecuteWords,  // 21
    kActiveLinkMessageWords,  // 22
    kFilterMessageWords,      // 23
    kWindowModeWords,         // 24
    kNotifyFieldsWords,       // 25
    kFocusWords,              // 26
    kAccessOptionWords,       // 27
    kDayOfWeekWords,          // 28
    kContainerTypeWords,      // 29
    kOwnerTypeWords,          // 30
    kReferenceTypeWords,      // 31
    kDsoUpdateWords,          // 32
    kDsoTransferWords,        // 33
    kDsoDuplicateWords,       // 34
    kDsoMapTypeWords,         // 35
    kSupportFileWords,        // 36
    kJoinOptionWords,         // 37
    kFormTypeWords,           // 38
    kDdNameWords,             // 39
    kDdFieldWords,            // 40
    kDdFormWords,             // 41
    kMapKindWords,            // 42
};

}  // namespace

std::span<const EnumWord> enumWords(ENUM_VALUE_TYPE type) {
  const auto number = static_cast<unsigned>(type);
  return number < std::size(kTables) ? kTables[number] : std::span<const EnumWord>();
}
