// SPDX-License-Identifier: MIT
#pragma once

// Dialogs.
#define IDD_PLOT_PROPERTIES             101
#define IDD_PLOT_PROGRESS               102

// Strings; strings.txt holds the texts, without a gap from IDS_FIRST to IDS_LAST.
#define IDS_FIRST                       200
#define IDS_APP_TITLE                   200
#define IDS_TITLE_FORMAT                201
#define IDS_NO_PLOT                     202
#define IDS_READY                       203
#define IDS_PENS_FORMAT                 204
#define IDS_STROKES_FORMAT              205
#define IDS_LABELS_FORMAT               206
#define IDS_SKIPPED_FORMAT              207
#define IDS_MENU_FILE                   208
#define IDS_MENU_SAMPLES                209
#define IDS_FILE_OPEN                   210
#define IDS_FILE_PROPERTIES             211
#define IDS_FILE_QUIT                   212
#define IDS_SAMPLE_HOUSING              213
#define IDS_SAMPLE_CURVES               214
#define IDS_SAMPLE_ISLAND               215
#define IDS_OPEN_CAPTION                216
#define IDS_OPEN_FILTER                 217
#define IDS_LEGEND_PENS                 218
#define IDS_LEGEND_SHEET                219
#define IDS_LEGEND_PEN_FORMAT           220
#define IDS_LEGEND_SIZE                 221
#define IDS_LEGEND_SIZE_FORMAT          222
#define IDS_LEGEND_PAPER                223
#define IDS_LEGEND_SCALE                224
#define IDS_LEGEND_MARGIN               225
#define IDS_MARGIN_FORMAT               226
#define IDS_PROPERTIES_CAPTION          227
#define IDS_GROUP_TITLE                 228
#define IDS_GROUP_DRAWING               229
#define IDS_GROUP_SHEET                 230
#define IDS_LABEL_TITLE                 231
#define IDS_HINT_TITLE                  232
#define IDS_LABEL_PEN                   233
#define IDS_HINT_PEN                    234
#define IDS_LABEL_SCALE                 235
#define IDS_HINT_SCALE                  236
#define IDS_CHECK_ROTATE                237
#define IDS_LABEL_SIZE                  238
#define IDS_SIZE_FIT                    239
#define IDS_SIZE_A4                     240
#define IDS_SIZE_A3                     241
#define IDS_SIZE_A2                     242
#define IDS_LABEL_PAPER                 243
#define IDS_PAPER_WHITE                 244
#define IDS_PAPER_IVORY                 245
#define IDS_PAPER_MILLIMETRE            246
#define IDS_PAPER_BLUEPRINT             247
#define IDS_LABEL_MARGIN                248
#define IDS_BUTTON_OK                   249
#define IDS_BUTTON_CANCEL               250
#define IDS_ERROR_SCALE_NUMBER          251
#define IDS_ERROR_SCALE_RANGE           252
#define IDS_ERROR_PEN_NUMBER            253
#define IDS_ERROR_PEN_RANGE             254
#define IDS_ERROR_UNREADABLE            255
#define IDS_ERROR_EMPTY                 256
#define IDS_ERROR_TOO_LARGE             257
#define IDS_ERROR_NO_INSTRUCTIONS       258
#define IDS_ERROR_DAMAGED               259
#define IDS_ERROR_TOO_MUCH              260
#define IDS_FILE_SUMMARY                261
#define IDS_PROGRESS_CAPTION            262
#define IDS_PROGRESS_PLOT_FORMAT        263
#define IDS_PROGRESS_AMOUNT_FORMAT      264
#define IDS_PROGRESS_UNKNOWN_FORMAT     265
#define IDS_SUMMARY_PLOT                266
#define IDS_SUMMARY_DATE                267
#define IDS_SUMMARY_BLANK               268
#define IDS_SUMMARY_BOUNDS              269
#define IDS_SUMMARY_SIZE                270
#define IDS_SUMMARY_STROKES             271
#define IDS_SUMMARY_AREAS               272
#define IDS_SUMMARY_LABELS              273
#define IDS_SUMMARY_INSTRUCTIONS        274
#define IDS_SUMMARY_INCOMPLETE          275
#define IDS_SUMMARY_PEN                 276
#define IDS_SUMMARY_SAVED_FORMAT        277
#define IDS_SUMMARY_REPLACE_FORMAT      278
#define IDS_ERROR_SUMMARY               279
#define IDS_LAST                        279

// Controls of the main window.
#define IDC_CANVAS                      1000
#define IDC_STATUS_MESSAGE              1001
#define IDC_STATUS_PENS                 1002
#define IDC_STATUS_STROKES              1003
#define IDC_STATUS_LABELS               1004
#define IDC_STATUS_SKIPPED              1005

// Controls of the properties dialog.
#define IDC_TITLE                       1101
#define IDC_PEN                         1102
#define IDC_SCALE                       1103
#define IDC_ROTATE                      1104
#define IDC_SIZE_FIT                    1105
#define IDC_SIZE_A4                     1106
#define IDC_SIZE_A3                     1107
#define IDC_SIZE_A2                     1108
#define IDC_PAPER                       1109
#define IDC_MARGIN                      1110
#define IDC_MARGIN_VALUE                1111
#define IDC_PREVIEW                     1112

// Controls of the progress dialog.
#define IDC_PROGRESS_PLOT               1201
#define IDC_PROGRESS_BAR                1202
#define IDC_PROGRESS_AMOUNT             1203

// Commands.
#define ID_PLOT_OPEN                    32771
#define ID_PLOT_PROPERTIES              32772
#define ID_PLOT_QUIT                    32773
#define ID_PLOT_SUMMARY                 32774
#define ID_SAMPLE_FIRST                 32780
#define ID_SAMPLE_HOUSING               32780
#define ID_SAMPLE_CURVES                32781
#define ID_SAMPLE_ISLAND                32782
#define ID_SAMPLE_LAST                  32782
