// CKtListCtrl (being written)
#pragma once
