// CKtEdit (being written)
#pragma once
