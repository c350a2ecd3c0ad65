// CKtRichEditCtrl (being written)
#pragma once
