// CKtComboBox (being written)
#pragma once
