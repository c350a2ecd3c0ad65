// CKtToolBar (being written)
#pragma once
