// Numbers of the library's resources and of the controls in its dialogs.
//
// Read by the resource compiler as well, so these are macros and nothing else stands here. Clients find dialogs and
// controls by these numbers: none may change. A control number means something only together with its dialog; several
// dialogs use the same ones.
#pragma once

// ---- Dialogs ----

#define IDD_META_CHAR 10006      // metacharacter picker
#define IDD_FILE_DIALOG 10007    // file browser
#define IDD_FILE_USER 10053      // network logon
#define IDD_MODEL_TITLE 10060    // settings of the displayed model title items
#define IDD_MODEL_SORT 10064     // sort conditions for model titles
#define IDD_MODEL_CONFIRM 10065  // question before a slow sort
#define IDD_NEW_FOLDER 10105     // new folder, and rename
#define IDD_TOOL_TIP 10106       // hover balloon

// A static text that no program asks for.
#define IDC_NONE (-1)

// ---- Controls: metacharacter picker ----

#define IDC_META_EDIT 10001  // hidden; carries the escape to the clipboard
#define IDC_META_LIST 10004

// ---- Controls: file browser ----

#define IDC_FILE_NAME 10008   // combo: name, with the recent files as its list
#define IDC_FILE_KIND 10009   // combo: the one line of the file kind
#define IDC_FILE_LIST 10010   // list view
#define IDC_BACK 10012        // hidden button; the dialog draws its area
#define IDC_UP 10013          // likewise
#define IDC_VIEW 10014        // likewise
#define IDC_LOCATION 10018    // owner-drawn combo: location bar
#define IDC_NAME_LABEL 10019  // label and hot area
#define IDC_KIND_LABEL 10021
#define IDC_CREATE_FOLDER 10027  // hidden button; the dialog draws its area
#define IDC_LOCATION_LABEL 10035
#define IDC_RECENT_COUNT 10045  // combo, shown on demand: number of recent files

// ---- Controls: network logon ----

#define IDC_USER_NAME 10023
#define IDC_USER_PASSWORD 10024
#define IDC_USER_PATH 10025  // read-only

// ---- Controls: model title items ----

#define IDC_TITLE_COMBO 10018  // hidden; drops down over the grid
#define IDC_TITLE_SORT 10027
#define IDC_TITLE_LIST 10028

// ---- Controls: sort conditions ----

#define IDC_SORT_ALWAYS 10031
#define IDC_SORT_WITHIN_LIMIT 10032
#define IDC_SORT_ASK 10033
#define IDC_SORT_LIMIT 10034

// ---- Controls: sort question ----

#define IDC_CONFIRM_SORT 10027
#define IDC_CONFIRM_COUNT 10029
#define IDC_CONFIRM_QUESTION 10030

// ---- Controls: new folder ----

#define IDC_FOLDER_NAME 10001
#define IDC_FOLDER_ICON 10038

// ---- Menus: each is a bar with one popup, to be tracked as sub-menu 0 ----

#define IDM_VIEW 10013        // view menu of kinds without titles
#define IDM_VIEW_TITLE 10061  // view menu of kinds with titles
#define IDM_ENTRY 10111       // menu of the selected entries

#define ID_VIEW_LARGE_ICONS 3001
#define ID_VIEW_SMALL_ICONS 3002
#define ID_VIEW_DETAILS 3003
#define ID_VIEW_LIST 3004
#define ID_VIEW_TITLES 3005
#define ID_ENTRY_DELETE 32780
#define ID_ENTRY_RENAME 32781

// ---- Icons: 16 x 16 and 32 x 32 pixels, 32 bits with alpha and 256 colours. The image number of an entry or place
// stands behind each. The network reads downwards: network, entire network, provider, domain or workgroup, computer,
// share. ----

#define IDI_CD_ROM 10074            // 13
#define IDI_COMPUTER 10075          // 1
#define IDI_DESKTOP 10076           // 0
#define IDI_FOLDER_SHORTCUT 10077   // 16
#define IDI_FOLDER 10078            // 17
#define IDI_DOMAIN 10079            // 5: domain or workgroup
#define IDI_FIXED_DRIVE 10080       // 11
#define IDI_FILE 10081              // 19, and any number that has no icon of its own
#define IDI_FILE_SHORTCUT 10082     // 18
#define IDI_NETWORK 10083           // 2
#define IDI_ENTIRE_NETWORK 10084    // 3
#define IDI_NETWORK_DRIVE 10085     // 9 (drive of a remote session's client) and 12
#define IDI_NEARBY_COMPUTERS 10086  // 6
#define IDI_PROVIDER 10087          // 4: network of one provider
#define IDI_RAM_DISK 10088          // 15
#define IDI_REMOVABLE 10089         // 14
#define IDI_SERVER 10090            // 7: computer in the network
#define IDI_SHARE 10091             // 8: shared folder

// Sort marks of the list header, 16 x 16: images 0 and 1 of its image list.
#define IDI_SORT_ASCENDING 10112
#define IDI_SORT_DESCENDING 10113

// ---- Bitmaps: 256 colours on RGB(192, 192, 192). Load them with LR_LOADMAP3DCOLORS: the ground and the frames' shadow
// take the user's dialog colours, and the image is copied as it is. Every button image is 22 pixels high and 24 wide,
// those of the view button 32. ----

#define IDB_TOOLBAR 10054  // strip of three 16 x 15: text library, metacharacter, register

#define IDB_BACK 10094
#define IDB_BACK_SELECTED 10095
#define IDB_BACK_FOCUSED 10096
#define IDB_BACK_DISABLED 10097
#define IDB_UP 10098
#define IDB_UP_SELECTED 10099
#define IDB_UP_FOCUSED 10100
#define IDB_UP_DISABLED 10101
#define IDB_CREATE_FOLDER 10102
#define IDB_CREATE_FOLDER_SELECTED 10103
#define IDB_CREATE_FOLDER_FOCUSED 10104
#define IDB_VIEW 10107
#define IDB_VIEW_SELECTED 10108
#define IDB_VIEW_FOCUSED 10109
#define IDB_CREATE_FOLDER_DISABLED 10110  // for places in which no folder can be made
